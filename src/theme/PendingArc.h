#pragma once

#include "PixelItem.h"

#include <QColor>

namespace ostrel {

/// A ring with one quarter in another colour.
class PendingArc : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor trackColor MEMBER m_trackColor NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor arcColor MEMBER m_arcColor NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal stroke MEMBER m_stroke NOTIFY lookChanged FINAL)
    /// The beginning of the quarter, in degrees clockwise from the top.
    Q_PROPERTY(qreal angle MEMBER m_angle NOTIFY lookChanged FINAL)

public:
    explicit PendingArc(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void lookChanged();

private:
    QColor m_trackColor;
    QColor m_arcColor;
    qreal m_stroke = 1;
    qreal m_angle = 0;
};

} // namespace ostrel
