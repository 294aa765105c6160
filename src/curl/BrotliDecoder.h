#pragma once

#include "MemberDecoder.h"

struct BrotliDecoderStateStruct;

namespace ostrel {

/// Decodes "br".
class BrotliDecoder final : public MemberDecoder
{
public:
    BrotliDecoder();
    ~BrotliDecoder() override;

protected:
    [[nodiscard]] Member decodeMember(QByteArrayView &input, std::span<char> output) override;
    [[nodiscard]] bool isHead(QByteArrayView bytes) const override;
    void beginAnother() override;

private:
    BrotliDecoderStateStruct *m_state;
};

} // namespace ostrel
