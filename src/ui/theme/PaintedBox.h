#pragma once

#include "PixelItem.h"

#include <QColor>

namespace ostrel {

/// A rounded box whose edge lies over its fill, painted as one picture where that is needed.
class PaintedBox : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Whether it paints: a rectangle with a radius, which costs less, shows seams where its
    /// logical pixels aren't whole pixels of the screen.
    Q_PROPERTY(bool isNeeded READ isNeeded CONSTANT FINAL)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor edge MEMBER m_edge NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal edgeWidth MEMBER m_edgeWidth NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY lookChanged FINAL)

public:
    explicit PaintedBox(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    [[nodiscard]] static bool isNeeded();

Q_SIGNALS:
    void lookChanged();

private:
    QColor m_color;
    QColor m_edge;
    qreal m_edgeWidth = 1;
    qreal m_radius = 0;
};

} // namespace ostrel
