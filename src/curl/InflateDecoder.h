#pragma once

#include "MemberDecoder.h"

#include <zlib.h>

namespace ostrel {

/// Decodes "gzip", and "deflate" with zlib's frame or, as some servers send it, without.
class InflateDecoder final : public MemberDecoder
{
public:
    enum class Format { gzip, deflate };

    explicit InflateDecoder(Format format);
    ~InflateDecoder() override;

protected:
    [[nodiscard]] Member decodeMember(QByteArrayView &input, std::span<char> output) override;
    [[nodiscard]] bool isHead(QByteArrayView bytes) const override;
    void beginAnother() override;

private:
    /// False if it needs more of @p input first.
    [[nodiscard]] bool open(QByteArrayView &input);
    [[nodiscard]] Member inflateSome(QByteArrayView &input, std::span<char> output);

    const Format m_format;
    bool m_isOpen = false;
    QByteArray m_beginning; ///< The bytes read to detect whether there is a frame.
    z_stream m_stream{};
};

} // namespace ostrel
