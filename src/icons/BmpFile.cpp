#include "BmpFile.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace ostrel {

namespace {

constexpr qsizetype fileHeaderSize = 14;
constexpr qsizetype bitmapHeaderSize = 40;
constexpr qint64 largestSide = std::numeric_limits<qint16>::max();

struct BmpHeader
{
    qint64 width;
    qint64 height;
    quint16 bitsPerPixel;
    quint32 compression;
    qint64 pixelsOffset;
};

template<typename Number>
Number littleEndianAt(QByteArrayView bytes, qsizetype offset)
{
    return qFromLittleEndian<Number>(bytes.data() + offset);
}

/// Nullopt for a kind of header that Qt doesn't read these fields from.
std::optional<BmpHeader> headerOf(QByteArrayView bmp)
{
    constexpr std::array<quint32, 4> knownSizes = {bitmapHeaderSize, 64, 108, 124};
    if (bmp.size() < fileHeaderSize + bitmapHeaderSize)
        return std::nullopt;
    const auto headerSize = littleEndianAt<quint32>(bmp, fileHeaderSize);
    if (std::ranges::find(knownSizes, headerSize) == knownSizes.end())
        return std::nullopt;
    return BmpHeader{
        .width = littleEndianAt<qint32>(bmp, 18),
        .height = std::abs(qint64(littleEndianAt<qint32>(bmp, 22))),
        .bitsPerPixel = littleEndianAt<quint16>(bmp, 28),
        .compression = littleEndianAt<quint32>(bmp, 30),
        .pixelsOffset =
            std::max<qint64>(littleEndianAt<quint32>(bmp, 10), fileHeaderSize + qint64(headerSize)),
    };
}

bool hasKnownDepth(const BmpHeader &header)
{
    constexpr std::array<quint16, 6> depths = {1, 4, 8, 16, 24, 32};
    return std::ranges::find(depths, header.bitsPerPixel) != depths.end();
}

bool hasModestSides(const BmpHeader &header)
{
    return header.width > 0 && header.height > 0 && header.width <= largestSide &&
           header.height <= largestSide;
}

/// Lower bound for the bytes of the pixels. Nullopt for a compression that Qt doesn't read.
std::optional<qint64> leastPixelBytes(const BmpHeader &header)
{
    enum Compression : quint32 { none, runsOfBytes, runsOfHalfBytes, bitFields };
    constexpr int rowUnit = 32; // In bits.
    constexpr qint64 longestRun = 255;
    switch (header.compression) {
    case none:
    case bitFields:
        return (header.width * header.bitsPerPixel + rowUnit - 1) / rowUnit * 4 * header.height;
    case runsOfBytes:
    case runsOfHalfBytes:
        return header.width * header.height / longestRun * 2;
    default:
        return std::nullopt;
    }
}

} // namespace

bool isBmp(QByteArrayView bytes)
{
    return bytes.startsWith("BM");
}

std::optional<QSize> bmpSize(QByteArrayView bmp)
{
    const auto header = headerOf(bmp);
    if (!header || !hasKnownDepth(*header) || !hasModestSides(*header))
        return std::nullopt;
    const auto least = leastPixelBytes(*header);
    if (!least || *least > bmp.size() - header->pixelsOffset)
        return std::nullopt;
    return QSize(static_cast<int>(header->width), static_cast<int>(header->height));
}

} // namespace ostrel
