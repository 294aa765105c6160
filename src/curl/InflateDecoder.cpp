#include "InflateDecoder.h"

#include <new>

namespace ostrel {

namespace {

constexpr QByteArrayView gzipMagic("\x1f\x8b\x08");
constexpr int gzipWindow = MAX_WBITS + 16;
constexpr int framedWindow = MAX_WBITS;
constexpr int bareWindow = -MAX_WBITS;

/// Whether zlib's frame begins with these two bytes (RFC 1950).
bool isFrame(QByteArrayView bytes)
{
    const auto method = static_cast<unsigned char>(bytes[0]);
    const auto flags = static_cast<unsigned char>(bytes[1]);
    return (method & 0x0f) == Z_DEFLATED && (method >> 4) <= 7 && (method * 256 + flags) % 31 == 0;
}

} // namespace

InflateDecoder::InflateDecoder(Format format)
    : MemberDecoder(format == Format::gzip ? gzipMagic.size() : 0)
    , m_format(format)
{
}

InflateDecoder::~InflateDecoder()
{
    if (m_isOpen)
        inflateEnd(&m_stream);
}

MemberDecoder::Member InflateDecoder::decodeMember(QByteArrayView &input, std::span<char> output)
{
    if (!m_isOpen && !open(input))
        return {{0, State::starved}, false};
    if (m_beginning.isEmpty())
        return inflateSome(input, output);

    QByteArrayView beginning(m_beginning);
    Member member = inflateSome(beginning, output);
    m_beginning = beginning.toByteArray();
    if (member.decoded.state == State::starved)
        member.decoded.state = State::ready;
    return member;
}

bool InflateDecoder::isHead(QByteArrayView bytes) const
{
    return gzipMagic.startsWith(bytes);
}

void InflateDecoder::beginAnother()
{
    inflateReset(&m_stream);
}

bool InflateDecoder::open(QByteArrayView &input)
{
    int window = gzipWindow;
    if (m_format == Format::deflate) {
        const qsizetype missing = qMin(2 - m_beginning.size(), input.size());
        m_beginning.append(input.first(missing));
        input = input.sliced(missing);
        if (m_beginning.size() < 2)
            return false;
        window = isFrame(m_beginning) ? framedWindow : bareWindow;
    }
    m_isOpen = inflateInit2(&m_stream, window) == Z_OK;
    if (!m_isOpen)
        throw std::bad_alloc();
    return true;
}

MemberDecoder::Member InflateDecoder::inflateSome(QByteArrayView &input, std::span<char> output)
{
    // zlib doesn't write to its input.
    m_stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(input.data()));
    m_stream.avail_in = static_cast<uInt>(input.size());
    m_stream.next_out = reinterpret_cast<Bytef *>(output.data());
    m_stream.avail_out = static_cast<uInt>(output.size());
    const int code = inflate(&m_stream, Z_NO_FLUSH);
    input = input.last(m_stream.avail_in);
    const std::size_t count = output.size() - m_stream.avail_out;
    if (code == Z_STREAM_END)
        return {{count, State::ready}, true};
    // Z_BUF_ERROR: no progress, because input is missing.
    if (code != Z_OK && code != Z_BUF_ERROR)
        return {{count, State::damaged}, false};
    return {{count, m_stream.avail_out == 0 ? State::ready : State::starved}, false};
}

} // namespace ostrel
