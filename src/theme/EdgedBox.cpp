#include "EdgedBox.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

EdgedBox::EdgedBox(QQuickItem *parent)
    : PixelItem(parent)
{
    connect(this, &EdgedBox::lookChanged, this, [this] { update(); });
}

void EdgedBox::paint(QPainter *painter)
{
    const QRectF box = boundingRect();
    const qreal radius = std::min({m_radius, box.width() / 2, box.height() / 2});
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_color);
    painter->drawRoundedRect(box, radius, radius);
    if (m_edge.alpha() == 0)
        return;
    const qreal inset = m_edgeWidth / 2;
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(m_edge, m_edgeWidth));
    painter->drawRoundedRect(box.adjusted(inset, inset, -inset, -inset), radius - inset,
                             radius - inset);
}

QString EdgedBox::look() const
{
    return u"box %1 %2 %3 %4"_s.arg(m_color.name(QColor::HexArgb), m_edge.name(QColor::HexArgb))
        .arg(m_edgeWidth)
        .arg(m_radius);
}

bool EdgedBox::isBlank() const
{
    return m_color.alpha() == 0 && m_edge.alpha() == 0;
}

} // namespace ostrel
