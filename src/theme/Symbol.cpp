#include "Symbol.h"

#include "SymbolRaster.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrel {

Symbol::Symbol(QQuickItem *parent)
    : PixelItem(parent)
{
    constexpr qreal usualSize = 12;
    setSystemSize(usualSize);
    connect(this, &Symbol::lookChanged, this, [this] { update(); });
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

void Symbol::paint(QPainter *painter)
{
    const qreal pixelRatio = painter->device()->devicePixelRatio();
    const int pixels = static_cast<int>(std::ceil(std::min(width(), height()) * pixelRatio));
    QImage image = SymbolRaster::image(m_name, pixels, m_color);
    image.setDevicePixelRatio(pixelRatio);
    const QSizeF size = image.deviceIndependentSize();
    painter->drawImage(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2),
                       image);
}

QString Symbol::look() const
{
    return u"symbol %1 %2"_s.arg(m_name, m_color.name(QColor::HexArgb));
}

} // namespace ostrel
