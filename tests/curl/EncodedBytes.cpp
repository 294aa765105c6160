#include "EncodedBytes.h"

#include <brotli/encode.h>
#include <zlib.h>
#include <zstd.h>

namespace ostrel::test {

namespace {

QByteArray byZlib(const QByteArray &plain, int windowBits)
{
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    QByteArray out(static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(plain.size()))),
                   '\0');
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(plain.constData()));
    stream.avail_in = static_cast<uInt>(plain.size());
    stream.next_out = reinterpret_cast<Bytef *>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    deflate(&stream, Z_FINISH);
    out.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return out;
}

} // namespace

QByteArray gzip(const QByteArray &plain)
{
    return byZlib(plain, MAX_WBITS + 16);
}

QByteArray deflated(const QByteArray &plain)
{
    return byZlib(plain, MAX_WBITS);
}

QByteArray bareDeflated(const QByteArray &plain)
{
    return byZlib(plain, -MAX_WBITS);
}

QByteArray brotli(const QByteArray &plain)
{
    std::size_t size = BrotliEncoderMaxCompressedSize(static_cast<std::size_t>(plain.size())) + 16;
    QByteArray out(static_cast<qsizetype>(size), '\0');
    BrotliEncoderCompress(BROTLI_DEFAULT_QUALITY, BROTLI_DEFAULT_WINDOW, BROTLI_MODE_GENERIC,
                          static_cast<std::size_t>(plain.size()),
                          reinterpret_cast<const std::uint8_t *>(plain.constData()), &size,
                          reinterpret_cast<std::uint8_t *>(out.data()));
    out.truncate(static_cast<qsizetype>(size));
    return out;
}

QByteArray zstd(const QByteArray &plain)
{
    const auto size = static_cast<std::size_t>(plain.size());
    QByteArray out(static_cast<qsizetype>(ZSTD_compressBound(size)), '\0');
    out.truncate(static_cast<qsizetype>(ZSTD_compress(
        out.data(), static_cast<std::size_t>(out.size()), plain.constData(), size, 3)));
    return out;
}

} // namespace ostrel::test
