#pragma once

#include <QColor>
#include <QImage>
#include <QQuickItem>

namespace ostrel {

/// A symbol of the theme, tinted, sharp at every scale. Decoration: what it says, its
/// surroundings say in words.
class Symbol : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged REQUIRED FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    /// The size of the text that the symbol goes with; makes the implicit size.
    Q_PROPERTY(qreal systemSize READ systemSize WRITE setSystemSize NOTIFY systemSizeChanged FINAL)

public:
    explicit Symbol(QQuickItem *parent = nullptr);

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString &name);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    [[nodiscard]] qreal systemSize() const { return m_systemSize; }
    void setSystemSize(qreal systemSize);

Q_SIGNALS:
    void nameChanged();
    void colorChanged();
    void systemSizeChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    [[nodiscard]] qreal pixelRatio() const;

    QString m_name;
    QColor m_color = Qt::black;
    qreal m_systemSize = 12;
    QImage m_image;
};

} // namespace ostrel
