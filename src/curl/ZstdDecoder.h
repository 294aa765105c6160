#pragma once

#include "MemberDecoder.h"

struct ZSTD_DCtx_s;

namespace ostrel {

/// Decodes "zstd" frames with windows of up to 8 MiB, the limit for HTTP (RFC 9659).
class ZstdDecoder final : public MemberDecoder
{
public:
    ZstdDecoder();
    ~ZstdDecoder() override;

protected:
    [[nodiscard]] Member decodeMember(QByteArrayView &input, std::span<char> output) override;
    [[nodiscard]] bool isHead(QByteArrayView bytes) const override;
    void beginAnother() override;

private:
    ZSTD_DCtx_s *m_context;
};

} // namespace ostrel
