#include "SymbolIcon.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cmath>

namespace ostrel {

SymbolIcon::SymbolIcon(const Look &look)
    : m_look(look)
{
}

QIcon SymbolIcon::icon(const Look &look)
{
    return QIcon(new SymbolIcon(look));
}

void SymbolIcon::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal ratio = painter->device()->devicePixelRatio();
    const int side = std::min(rect.width(), rect.height());
    const int pixels = static_cast<int>(std::lround(side * ratio));
    QRect square(0, 0, side, side);
    square.moveCenter(rect.center());
    painter->drawPixmap(square, pixmap({pixels, pixels}, mode, state));
}

QPixmap SymbolIcon::pixmap(const QSize &size, QIcon::Mode, QIcon::State)
{
    const int pixels = std::min(size.width(), size.height());
    return QPixmap::fromImage(
        SymbolRaster::image(m_look.symbol, pixels, m_look.color, m_look.margin));
}

QList<QSize> SymbolIcon::availableSizes(QIcon::Mode, QIcon::State)
{
    return {{16, 16}, {22, 22}, {24, 24}, {32, 32}, {48, 48}, {64, 64}};
}

QIconEngine *SymbolIcon::clone() const
{
    return new SymbolIcon(m_look);
}

} // namespace ostrel
