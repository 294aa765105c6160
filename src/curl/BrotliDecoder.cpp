#include "BrotliDecoder.h"

#include <brotli/decode.h>
#include <new>

namespace ostrel {

BrotliDecoder::BrotliDecoder()
    : MemberDecoder(0)
    , m_state(BrotliDecoderCreateInstance(nullptr, nullptr, nullptr))
{
    if (m_state == nullptr)
        throw std::bad_alloc();
}

BrotliDecoder::~BrotliDecoder()
{
    BrotliDecoderDestroyInstance(m_state);
}

MemberDecoder::Member BrotliDecoder::decodeMember(QByteArrayView &input, std::span<char> output)
{
    auto left = static_cast<std::size_t>(input.size());
    const auto *from = reinterpret_cast<const std::uint8_t *>(input.data());
    std::size_t room = output.size();
    auto *to = reinterpret_cast<std::uint8_t *>(output.data());
    const auto code = BrotliDecoderDecompressStream(m_state, &left, &from, &room, &to, nullptr);
    input = input.last(static_cast<qsizetype>(left));
    const std::size_t count = output.size() - room;
    switch (code) {
    case BROTLI_DECODER_RESULT_SUCCESS:
        return {{count, State::ready}, true};
    case BROTLI_DECODER_RESULT_NEEDS_MORE_INPUT:
        return {{count, State::starved}, false};
    case BROTLI_DECODER_RESULT_NEEDS_MORE_OUTPUT:
        return {{count, State::ready}, false};
    case BROTLI_DECODER_RESULT_ERROR:
        break;
    }
    return {{count, State::damaged}, false};
}

bool BrotliDecoder::isHead(QByteArrayView bytes) const
{
    Q_UNUSED(bytes)
    return false;
}

void BrotliDecoder::beginAnother() {}

} // namespace ostrel
