#include "PendingArc.h"

#include <QPainter>

#include <cmath>

namespace ostrel {

namespace {

/// QPainter counts sixteenths of a degree, counter-clockwise from three o'clock.
int painterAngle(qreal clockwiseFromTop)
{
    constexpr qreal top = 90;
    constexpr qreal unitsPerDegree = 16;
    return static_cast<int>(std::lround((top - clockwiseFromTop) * unitsPerDegree));
}

} // namespace

PendingArc::PendingArc(QQuickItem *parent)
    : PixelItem(parent)
{
    connect(this, &PendingArc::lookChanged, this, [this] { update(); });
}

void PendingArc::paint(QPainter *painter)
{
    constexpr qreal quarter = 90;
    const qreal inset = m_stroke / 2;
    const QRectF circle = boundingRect().adjusted(inset, inset, -inset, -inset);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_trackColor, m_stroke));
    painter->drawEllipse(circle);
    painter->setPen(QPen(m_arcColor, m_stroke, Qt::SolidLine, Qt::RoundCap));
    painter->drawArc(circle, painterAngle(m_angle), painterAngle(quarter) - painterAngle(0));
}

} // namespace ostrel
