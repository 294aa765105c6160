#include "IcoFile.h"

#include "PictureDecoder.h"
#include "PngChunks.h"

#include <QtEndian>

#include <algorithm>
#include <optional>

namespace ostrel {

namespace {

constexpr QByteArrayView icoSignature("\0\0\1\0", 4);
constexpr qsizetype headerSize = 6;
constexpr qsizetype entrySize = 16;
constexpr qsizetype bitmapHeaderSize = 40;
/// The directory's byte can't represent a larger one.
constexpr quint32 largestBitmapSide = 256;
/// Each may be as expensive to decode as a separate file.
constexpr qsizetype mostPictures = 8;
constexpr quint32 mostFurtherPixels = 512 * 512;

struct Picture
{
    quint32 width;
    quint32 height;
    quint16 bitsPerPixel;
    QByteArrayView content; ///< A view into the containing file.
};

template<typename Number>
Number littleEndianAt(QByteArrayView bytes, qsizetype offset)
{
    return qFromLittleEndian<Number>(bytes.data() + offset);
}

template<typename Number>
void appendLittleEndian(QByteArray &bytes, Number number)
{
    const Number stored = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&stored), sizeof stored);
}

std::optional<Picture> pngPicture(QByteArrayView content)
{
    constexpr qsizetype widthOffset = 16;
    constexpr qsizetype heightOffset = 20;
    constexpr qsizetype depthOffset = 24;
    if (content.size() <= depthOffset)
        return std::nullopt;
    const auto width = qFromBigEndian<quint32>(content.data() + widthOffset);
    const auto height = qFromBigEndian<quint32>(content.data() + heightOffset);
    if (width > largestPictureSide || height > largestPictureSide)
        return std::nullopt;
    constexpr quint16 bitsPerPixel = 32;
    return Picture{width, height, bitsPerPixel, content};
}

/// The height in the bitmap's header includes the mask.
std::optional<Picture> bitmapPicture(QByteArrayView content)
{
    if (content.size() < bitmapHeaderSize || littleEndianAt<quint32>(content, 0) < bitmapHeaderSize)
        return std::nullopt;
    const auto width = littleEndianAt<quint32>(content, 4);
    const auto height = littleEndianAt<quint32>(content, 8) / 2;
    if (width < 1 || height < 1 || width > largestBitmapSide || height > largestBitmapSide)
        return std::nullopt;
    return Picture{width, height, littleEndianAt<quint16>(content, 14), content};
}

std::optional<Picture> pictureAt(QByteArrayView ico, QByteArrayView entry)
{
    const qsizetype size = littleEndianAt<quint32>(entry, 8);
    const qsizetype offset = littleEndianAt<quint32>(entry, 12);
    if (offset > ico.size() || size > ico.size() - offset)
        return std::nullopt;
    const QByteArrayView content = ico.sliced(offset, size);
    return isPng(content) ? pngPicture(content) : bitmapPicture(content);
}

QList<Picture> picturesListedIn(QByteArrayView ico)
{
    const qsizetype stated = littleEndianAt<quint16>(ico, 4);
    const qsizetype count = std::min(stated, (ico.size() - headerSize) / entrySize);
    QList<Picture> pictures;
    for (qsizetype i = 0; i < count; ++i) {
        if (const auto picture = pictureAt(ico, ico.sliced(headerSize + i * entrySize, entrySize)))
            pictures.append(*picture);
    }
    return pictures;
}

/// An ICO file with this one picture.
QByteArray singlePictureIco(const Picture &picture)
{
    QByteArray file = icoSignature.toByteArray();
    appendLittleEndian<quint16>(file, 1);
    // 256 is written as 0.
    appendLittleEndian(file, static_cast<quint8>(picture.width));
    appendLittleEndian(file, static_cast<quint8>(picture.height));
    appendLittleEndian<quint16>(file, 0);
    appendLittleEndian<quint16>(file, 1);
    appendLittleEndian(file, picture.bitsPerPixel);
    appendLittleEndian(file, static_cast<quint32>(picture.content.size()));
    appendLittleEndian(file, static_cast<quint32>(headerSize + entrySize));
    return file + picture.content.toByteArray();
}

QByteArray fileOf(const Picture &picture)
{
    return isPng(picture.content) ? picture.content.toByteArray() : singlePictureIco(picture);
}

} // namespace

bool isIco(QByteArrayView bytes)
{
    return bytes.startsWith(icoSignature) && bytes.size() >= headerSize;
}

QList<QByteArray> picturesInIco(const QByteArray &ico)
{
    QList<Picture> pictures = picturesListedIn(ico);
    std::ranges::stable_sort(pictures, std::ranges::greater(), [](const Picture &picture) {
        return std::pair(quint64(picture.width) * picture.height, picture.bitsPerPixel);
    });

    QList<QByteArray> files;
    quint32 pixelsLeft = mostFurtherPixels;
    for (const Picture &picture : pictures) {
        const quint32 pixels = files.isEmpty() ? 0 : picture.width * picture.height;
        if (pixels > pixelsLeft || files.size() == mostPictures)
            continue;
        pixelsLeft -= pixels;
        files.append(fileOf(picture));
    }
    return files;
}

} // namespace ostrel
