#pragma once

#include <QByteArrayView>

#include <memory>
#include <span>

namespace ostrel {

/// Takes back what a Content-Encoding has done to a body, piece by piece. One thread at a time.
class ContentDecoder
{
public:
    enum class State {
        ready,   ///< There may be more to be had, also without more input.
        starved, ///< All input is used up.
        damaged, ///< The bytes aren't what the encoding says, or there isn't enough memory.
    };

    struct Decoded
    {
        std::size_t count; ///< Of the bytes in the output.
        State state;
    };

    /// For a body with the value @p contentEncoding of that header; null if the body is as it
    /// comes: where nothing is encoded, or anything in a way that isn't known, or in more than five
    /// ways. As browsers do. May throw std::bad_alloc.
    [[nodiscard]] static std::unique_ptr<ContentDecoder> make(QByteArrayView contentEncoding);

    ContentDecoder() = default;
    ContentDecoder(const ContentDecoder &) = delete;
    ContentDecoder &operator=(const ContentDecoder &) = delete;
    virtual ~ContentDecoder() = default;

    /// Decodes what it can of @p input, whose front it cuts off, into @p output, which isn't empty.
    /// The work of one call is bounded by the output's size, or 64 KiB if that's more. May throw
    /// std::bad_alloc.
    [[nodiscard]] virtual Decoded decode(QByteArrayView &input, std::span<char> output) = 0;
    /// Whether the body may end here.
    [[nodiscard]] virtual bool isComplete() const = 0;
};

} // namespace ostrel
