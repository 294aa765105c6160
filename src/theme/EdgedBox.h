#pragma once

#include "PixelItem.h"

#include <QColor>

namespace ostrel {

/// A rounded box whose edge, if it has one, is drawn over its fill, inside its outline. It is sharp
/// and without seams even if logical pixels aren't whole pixels of the screen.
class EdgedBox : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor edge MEMBER m_edge NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal edgeWidth MEMBER m_edgeWidth NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY lookChanged FINAL)

public:
    explicit EdgedBox(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void lookChanged();

protected:
    [[nodiscard]] bool isBlank() const override;
    [[nodiscard]] QString look() const override;

private:
    QColor m_color = Qt::transparent;
    QColor m_edge = Qt::transparent;
    qreal m_edgeWidth = 1;
    qreal m_radius = 0;
};

} // namespace ostrel
