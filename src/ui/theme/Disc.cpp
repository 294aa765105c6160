#include "Disc.h"

#include <QPainter>

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
    painter->setBrush(m_color);
    painter->drawEllipse(boundingRect().center(), m_diameter / 2, m_diameter / 2);
}

QString Disc::look() const
{
    return QStringLiteral("disc %1 %2").arg(m_color.name(QColor::HexArgb)).arg(m_diameter);
}

} // namespace ostrel
