#pragma once

#include "PixelItem.h"

#include <QColor>

namespace ostrel {

/// A filled circle in the middle of the item, optionally on a larger one. Unlike a rectangle with a
/// radius, it is round and even at every size and position, even if its colour is translucent.
class Disc : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal diameter MEMBER m_diameter NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor groundColor MEMBER m_groundColor NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal groundDiameter MEMBER m_groundDiameter NOTIFY lookChanged FINAL)

public:
    explicit Disc(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void lookChanged();

protected:
    [[nodiscard]] QString look() const override;

private:
    QColor m_color;
    qreal m_diameter = 0;
    QColor m_groundColor = Qt::transparent;
    qreal m_groundDiameter = 0;
};

} // namespace ostrel
