#include "PixelItem.h"

#include <QImage>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <memory>

namespace ostrel {

namespace {

/// As many pixels as @p length touches; what only rounding adds is none.
int pixelsOf(qreal length)
{
    constexpr qreal tolerance = 1e-6;
    return static_cast<int>(std::ceil(length - tolerance));
}

} // namespace

PixelItem::PixelItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void PixelItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void PixelItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemVisibleHasChanged)
        update();
    QQuickItem::itemChange(change, value);
}

QSGNode *PixelItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData * /*data*/)
{
    std::unique_ptr<QSGNode> previous(oldNode);
    const QImage image = picture();
    if (image.isNull())
        return nullptr;
    auto *node = static_cast<QSGImageNode *>(previous.release());
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Nearest);
    }
    node->setTexture(window()->createTextureFromImage(image));
    node->setRect(QRectF(QPointF(), image.deviceIndependentSize()));
    return node;
}

QImage PixelItem::picture()
{
    const qreal pixelRatio = window()->effectiveDevicePixelRatio();
    const QSize pixels(pixelsOf(width() * pixelRatio), pixelsOf(height() * pixelRatio));
    if (pixels.isEmpty() || !isVisible() || isBlank())
        return {};
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(&painter);
    return image;
}

} // namespace ostrel
