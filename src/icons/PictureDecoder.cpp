#include "PictureDecoder.h"

#include "BmpFile.h"
#include "IcoFile.h"
#include "PaintingEstimate.h"
#include "PngChunks.h"
#include "SafeSvg.h"
#include "WebpFile.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <QtEndian>

#include <cstdlib>

namespace ostrel {

namespace {

enum class PictureFormat { none, png, ico, jpeg, gif, webp, bmp, svg };

/// An SVG file identifies itself after a prologue of any length, so everything that begins like XML
/// counts; the parser decides.
bool looksLikeXml(QByteArrayView bytes)
{
    constexpr QByteArrayView byteOrderMark("\xef\xbb\xbf");
    if (bytes.startsWith(byteOrderMark))
        bytes = bytes.sliced(byteOrderMark.size());
    return bytes.trimmed().startsWith('<');
}

PictureFormat formatOf(const QByteArray &bytes)
{
    if (isPng(bytes))
        return PictureFormat::png;
    if (isIco(bytes))
        return PictureFormat::ico;
    if (bytes.startsWith("\xff\xd8\xff"))
        return PictureFormat::jpeg;
    if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a"))
        return PictureFormat::gif;
    if (isWebp(bytes))
        return PictureFormat::webp;
    if (isBmp(bytes))
        return PictureFormat::bmp;
    return looksLikeXml(bytes) ? PictureFormat::svg : PictureFormat::none;
}

bool isModestSize(const QSize &size, int largestSide = largestPictureSide)
{
    return !size.isEmpty() && size.width() <= largestSide && size.height() <= largestSide;
}

/// Has a colour for whatever a pixel may name: the painter doesn't look whether there is one.
void fillPalette(QImage &image)
{
    const bool isIndexed = image.format() <= QImage::Format_Indexed8;
    if (isIndexed)
        image.setColorCount(1 << image.depth());
}

/// The pixels of @p image without the texts, profile and resolution that came with them.
QImage pixelsOf(QImage image)
{
    if (image.isNull())
        return {};
    fillPalette(image);
    QImage pixels(image.size(), QImage::Format_ARGB32_Premultiplied);
    if (pixels.isNull())
        return {};
    QPainter painter(&pixels);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(pixels.rect(), image);
    return pixels;
}

QImage readPixels(QByteArray bytes, const QByteArray &format, int largestSide = largestPictureSide)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    // A bitmap that begins with its topmost row has a negative height.
    const QSize size(reader.size().width(), std::abs(reader.size().height()));
    if (!isModestSize(size, largestSide))
        return {};
    return pixelsOf(reader.read());
}

/// Before its first frame, a GIF has the size of its canvas, which may differ from the frame's.
QImage decodeGif(const QByteArray &gif)
{
    constexpr qsizetype canvasOffset = 6;
    if (gif.size() < canvasOffset + 4)
        return {};
    const QSize canvas(qFromLittleEndian<quint16>(gif.constData() + canvasOffset),
                       qFromLittleEndian<quint16>(gif.constData() + canvasOffset + 2));
    return isModestSize(canvas) ? readPixels(gif, QByteArrayLiteral("gif")) : QImage();
}

QImage decodePng(const QByteArray &png)
{
    return readPixels(essentialChunks(png), QByteArrayLiteral("png"));
}

QImage decodeIco(const QByteArray &ico)
{
    for (const QByteArray &picture : picturesInIco(ico)) {
        QImage image =
            isPng(picture) ? decodePng(picture) : readPixels(picture, QByteArrayLiteral("ico"));
        if (!image.isNull())
            return image;
    }
    return {};
}

/// A progressive JPEG is decoded again for each of its scans, and a scan can be a few bytes long.
QImage decodeJpeg(const QByteArray &jpeg)
{
    constexpr qsizetype mostScans = 24;
    const QByteArrayView startOfScan("\xff\xda");
    return jpeg.count(startOfScan) > mostScans ? QImage()
                                               : readPixels(jpeg, QByteArrayLiteral("jpeg"));
}

/// A lossless picture can have as many tables as squares of four by four pixels.
QImage decodeWebp(const QByteArray &webp)
{
    constexpr qsizetype mostLossless = qsizetype(40) * 1024;
    constexpr int largestSide = 512;
    const int side = losslessSize(webp) > mostLossless ? largestSide : largestPictureSide;
    return readPixels(webp, QByteArrayLiteral("webp"), side);
}

QImage decodeBmp(const QByteArray &bmp)
{
    const auto size = bmpSize(bmp);
    return size && isModestSize(*size) ? readPixels(bmp, QByteArrayLiteral("bmp")) : QImage();
}

/// A drawing that is no wider than a pixel by its own account, as tracking pixels are, stays so,
/// and no other becomes so.
QSize drawnSize(const QSize &natural)
{
    const QSize bounds(drawnPictureSide, drawnPictureSide);
    if (natural.width() <= 1)
        return natural.boundedTo(bounds);
    return natural.scaled(bounds, Qt::KeepAspectRatio).expandedTo(QSize(2, 1));
}

bool isModestWork(QSvgRenderer &renderer, const QSize &size)
{
    constexpr double mostWork = 2e6;
    PaintingEstimate estimate(size);
    QPainter painter(&estimate);
    renderer.render(&painter, QRectF(QPointF(), size));
    return estimate.work() <= mostWork;
}

QImage decodeSvg(const QByteArray &svg)
{
    const auto safe = safeSvg(svg);
    if (!safe)
        return {};
    QSvgRenderer renderer(*safe);
    if (!renderer.isValid() || renderer.defaultSize().isEmpty())
        return {};

    const QSize size = drawnSize(renderer.defaultSize());
    if (!isModestWork(renderer, size))
        return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace

QImage decodePicture(const QByteArray &bytes)
{
    switch (formatOf(bytes)) {
    case PictureFormat::png:
        return decodePng(bytes);
    case PictureFormat::ico:
        return decodeIco(bytes);
    case PictureFormat::jpeg:
        return decodeJpeg(bytes);
    case PictureFormat::gif:
        return decodeGif(bytes);
    case PictureFormat::webp:
        return decodeWebp(bytes);
    case PictureFormat::bmp:
        return decodeBmp(bytes);
    case PictureFormat::svg:
        return decodeSvg(bytes);
    case PictureFormat::none:
        return {};
    }
    Q_UNREACHABLE();
}

} // namespace ostrel
