#pragma once

#include "PixelItem.h"

#include <QColor>

namespace ostrel {

/// A symbol of the theme, tinted, in the middle of the item. Decorative: texts nearby express its
/// meaning.
class Symbol : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY lookChanged REQUIRED FINAL)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged FINAL)
    /// The size of the text beside the symbol; determines the implicit size.
    Q_PROPERTY(qreal systemSize READ systemSize WRITE setSystemSize NOTIFY systemSizeChanged FINAL)

public:
    explicit Symbol(QQuickItem *parent = nullptr);

    [[nodiscard]] qreal systemSize() const { return m_systemSize; }
    void setSystemSize(qreal systemSize);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void lookChanged();
    void systemSizeChanged();

protected:
    [[nodiscard]] QString look() const override;

private:
    QString m_name;
    QColor m_color = Qt::black;
    qreal m_systemSize = 0;
};

} // namespace ostrel
