#include "DemoIcon.h"

#include <QPainter>
#include <QPolygonF>

namespace ostrel {

namespace {

constexpr int side = 64;

void draw(QPainter &painter, DemoShape shape)
{
    switch (shape) {
    case DemoShape::disc:
        return painter.drawEllipse(QPointF(32, 32), 17, 17);
    case DemoShape::ring:
        painter.setPen(QPen(Qt::white, 8));
        painter.setBrush(Qt::NoBrush);
        return painter.drawEllipse(QPointF(32, 32), 15, 15);
    case DemoShape::bars:
        for (const int top : {18, 36})
            painter.drawRoundedRect(QRectF(14, top, 36, 10), 4, 4);
        return;
    case DemoShape::lines:
        for (const int top : {16, 28, 40})
            painter.drawRect(QRectF(16, top, top == 40 ? 20 : 32, 6));
        return;
    case DemoShape::roof:
        painter.drawPolygon(QPolygonF({{32, 14}, {50, 30}, {14, 30}}));
        return painter.drawRect(QRectF(18, 34, 28, 14));
    }
}

} // namespace

QImage demoIcon(DemoShape shape, const QColor &color)
{
    QImage icon(side, side, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(icon.rect(), 14, 14);
    painter.setBrush(Qt::white);
    draw(painter, shape);
    return icon;
}

} // namespace ostrel
