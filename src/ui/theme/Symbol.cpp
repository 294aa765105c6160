#include "Symbol.h"

#include "SymbolRaster.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <cmath>
#include <memory>

namespace ostrel {

Symbol::Symbol(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    const qreal side = SymbolRaster::boxFor(m_systemSize);
    setImplicitSize(side, side);
}

void Symbol::setName(const QString &name)
{
    if (m_name == name)
        return;
    m_name = name;
    polish();
    Q_EMIT nameChanged();
}

void Symbol::setColor(const QColor &color)
{
    if (m_color == color)
        return;
    m_color = color;
    polish();
    Q_EMIT colorChanged();
}

void Symbol::setSystemSize(qreal systemSize)
{
    if (qFuzzyCompare(m_systemSize, systemSize))
        return;
    m_systemSize = systemSize;
    const qreal side = SymbolRaster::boxFor(m_systemSize);
    setImplicitSize(side, side);
    Q_EMIT systemSizeChanged();
}

void Symbol::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void Symbol::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        polish();
    QQuickItem::itemChange(change, value);
}

void Symbol::updatePolish()
{
    const int pixels = static_cast<int>(std::ceil(std::min(width(), height()) * pixelRatio()));
    m_image = SymbolRaster::image(m_name, pixels, m_color);
    update();
}

QSGNode *Symbol::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    std::unique_ptr<QSGNode> previous(oldNode);
    if (m_image.isNull())
        return nullptr;
    QSGImageNode *node = window()->createImageNode();
    node->setTexture(window()->createTextureFromImage(m_image));
    node->setOwnsTexture(true);
    // One pixel of the picture on one of the screen, wherever the item stands between them.
    node->setFiltering(QSGTexture::Nearest);
    const QSizeF size = QSizeF(m_image.size()) / pixelRatio();
    node->setRect(
        QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size));
    return node;
}

qreal Symbol::pixelRatio() const
{
    return window() ? window()->effectiveDevicePixelRatio() : 1.0;
}

} // namespace ostrel
