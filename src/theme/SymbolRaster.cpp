#include "SymbolRaster.h"

#include <QCache>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

struct SymbolBox
{
    int systemSize;
    int side;
};
constexpr std::array symbolBoxes = {
    SymbolBox{11, 14}, SymbolBox{12, 14}, SymbolBox{16, 20},
    SymbolBox{22, 26}, SymbolBox{28, 34}, SymbolBox{48, 58},
};

struct Key
{
    QString name;
    int pixels;
    QRgb color;
    SymbolRaster::Margin margin;

    bool operator==(const Key &) const = default;
};

size_t qHash(const Key &key, size_t seed = 0)
{
    return qHashMulti(seed, key.name, key.pixels, key.color, static_cast<int>(key.margin));
}

/// The symbol's drawing in opaque @p color; empty if there is no such symbol.
QByteArray coloredDrawing(const QString &name, const QColor &color)
{
    QFile file(u":/qt/qml/Ostrel/Theme/symbols/%1.svg"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll().replace("currentColor", color.name(QColor::HexRgb).toLatin1());
}

/// Paths overlap within a symbol, so the alpha is applied to the whole picture.
void fade(QImage &image, int alpha)
{
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(image.rect(), QColor(0, 0, 0, alpha));
}

/// The position of the whole grid in a square of @p pixels.
QRectF gridIn(int pixels, SymbolRaster::Margin margin)
{
    constexpr qreal grid = 24;
    constexpr qreal drawnArea = 22.1; // Curves extend a little beyond the 22 they are drawn in.
    const qreal side =
        margin == SymbolRaster::Margin::ofGrid ? pixels : (pixels - 2) * grid / drawnArea;
    const qreal corner = (pixels - side) / 2;
    return {corner, corner, side, side};
}

QImage draw(const QString &name, int pixels, const QColor &color, SymbolRaster::Margin margin)
{
    const QByteArray drawing = coloredDrawing(name, color);
    if (drawing.isEmpty() || pixels <= 0)
        return {};
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        QSvgRenderer(drawing).render(&painter, gridIn(pixels, margin));
    }
    if (color.alpha() < 255)
        fade(image, color.alpha());
    return image;
}

/// Room for some hundred symbols of the usual sizes.
constexpr int cacheBytes = 1 << 20;

} // namespace

QImage SymbolRaster::image(const QString &name, int pixels, const QColor &color, Margin margin)
{
    static QCache<Key, QImage> images(cacheBytes);
    const Key key = {.name = name, .pixels = pixels, .color = color.rgba(), .margin = margin};
    if (const QImage *known = images.object(key))
        return *known;
    QImage drawn = draw(name, pixels, color, margin);
    images.insert(key, new QImage(drawn), static_cast<int>(drawn.sizeInBytes()) + 1);
    return drawn;
}

qreal SymbolRaster::boxFor(qreal systemSize)
{
    for (const SymbolBox &box : symbolBoxes) {
        if (box.systemSize == static_cast<int>(std::lround(systemSize)))
            return box.side;
    }
    constexpr qreal usualRatio = 1.2;
    return 2 * std::ceil(systemSize * usualRatio / 2);
}

} // namespace ostrel
