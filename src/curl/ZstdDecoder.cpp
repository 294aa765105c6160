#include "ZstdDecoder.h"

#include <new>
#include <zstd.h>

namespace ostrel {

namespace {

constexpr QByteArrayView magic("\x28\xb5\x2f\xfd");
/// The rest, after a byte from 0x50 to 0x5f, of the magic number of skippable frames (RFC 8878,
/// 3.1.2).
constexpr QByteArrayView skippableMagic("\x2a\x4d\x18");
constexpr int largestWindowLog = 23;

} // namespace

ZstdDecoder::ZstdDecoder()
    : MemberDecoder(magic.size())
    , m_context(ZSTD_createDCtx())
{
    if (m_context == nullptr)
        throw std::bad_alloc();
    ZSTD_DCtx_setParameter(m_context, ZSTD_d_windowLogMax, largestWindowLog);
}

ZstdDecoder::~ZstdDecoder()
{
    ZSTD_freeDCtx(m_context);
}

MemberDecoder::Member ZstdDecoder::decodeMember(QByteArrayView &input, std::span<char> output)
{
    ZSTD_inBuffer from{input.data(), static_cast<std::size_t>(input.size()), 0};
    ZSTD_outBuffer to{output.data(), output.size(), 0};
    const std::size_t code = ZSTD_decompressStream(m_context, &to, &from);
    input = input.sliced(static_cast<qsizetype>(from.pos));
    if (ZSTD_isError(code) != 0)
        return {{to.pos, State::damaged}, false};
    const bool isStarved = input.isEmpty() && to.pos < to.size;
    return {{to.pos, isStarved ? State::starved : State::ready}, code == 0};
}

bool ZstdDecoder::isHead(QByteArrayView bytes) const
{
    const bool isSkippable = (static_cast<unsigned char>(bytes.front()) & 0xf0) == 0x50;
    return magic.startsWith(bytes) || (isSkippable && skippableMagic.startsWith(bytes.sliced(1)));
}

/// The library does this by itself.
void ZstdDecoder::beginAnother() {}

} // namespace ostrel
