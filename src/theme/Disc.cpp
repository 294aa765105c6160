#include "Disc.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace ostrel {

Disc::Disc(QQuickItem *parent)
    : PixelItem(parent)
{
    connect(this, &Disc::lookChanged, this, [this] { update(); });
}

void Disc::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const QPointF middle = boundingRect().center();
    if (m_groundColor.alpha() > 0) {
        painter->setBrush(m_groundColor);
        painter->drawEllipse(middle, m_groundDiameter / 2, m_groundDiameter / 2);
    }
    painter->setBrush(m_color);
    painter->drawEllipse(middle, m_diameter / 2, m_diameter / 2);
}

QString Disc::look() const
{
    return u"disc %1 %2 %3 %4"_s
        .arg(m_color.name(QColor::HexArgb), m_groundColor.name(QColor::HexArgb))
        .arg(m_diameter)
        .arg(m_groundDiameter);
}

} // namespace ostrel
