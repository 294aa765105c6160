#pragma once

#include <QByteArrayView>

#include <memory>
#include <span>

namespace ostrel {

/// Reverts the Content-Encoding of a body that arrives in chunks. One thread at a time.
class ContentDecoder
{
public:
    enum class State {
        ready,   ///< There may be more output, even without more input.
        starved, ///< All input is consumed.
        damaged, ///< The bytes are invalid in this encoding, or there isn't enough memory.
    };

    struct Decoded
    {
        std::size_t count; ///< Number of bytes in the output.
        State state;
    };

    /// Makes the decoder for a body with this Content-Encoding header. Null if the body must be
    /// used as received: if it isn't encoded, if any encoding is unknown, or if there are more than
    /// five. Browsers do the same. May throw std::bad_alloc.
    [[nodiscard]] static std::unique_ptr<ContentDecoder> make(QByteArrayView contentEncoding);

    ContentDecoder() = default;
    ContentDecoder(const ContentDecoder &) = delete;
    ContentDecoder &operator=(const ContentDecoder &) = delete;
    virtual ~ContentDecoder() = default;

    /// Decodes as much as possible of @p input, and removes that from its front, into @p output,
    /// which must not be empty. The work of one call is bounded by the output's size, or 64 KiB if
    /// that's more. May throw std::bad_alloc.
    [[nodiscard]] virtual Decoded decode(QByteArrayView &input, std::span<char> output) = 0;
    /// Whether the body may end here.
    [[nodiscard]] virtual bool isComplete() const = 0;
};

} // namespace ostrel
