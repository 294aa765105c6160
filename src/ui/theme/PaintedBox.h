#pragma once

#include "PixelItem.h"

#include <QColor>

namespace ostrel {

/// A rounded box whose edge lies over its fill, sharp and without seams also where its logical
/// pixels aren't whole pixels of the screen.
class PaintedBox : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor edge MEMBER m_edge NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal edgeWidth MEMBER m_edgeWidth NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY lookChanged FINAL)

public:
    explicit PaintedBox(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void lookChanged();

protected:
    [[nodiscard]] bool isBlank() const override;

private:
    QColor m_color;
    QColor m_edge;
    qreal m_edgeWidth = 1;
    qreal m_radius = 0;
};

} // namespace ostrel
