#pragma once

#include <QImage>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <memory>

class QPainter;

namespace ostrel {

/// An item drawn with a QPainter, as a picture with the screen's pixels: even if the item's size
/// isn't a whole number of them, nothing is scaled, so round shapes stay round and no line is lost.
/// While it isn't visible there is no picture. Derive from it by its qualified name, since the QML
/// tools find it only by that.
class PixelItem : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit PixelItem(QQuickItem *parent = nullptr);

    /// Draws the item in its own coordinates, on a transparent background. Called after each
    /// update().
    virtual void paint(QPainter *painter) = 0;

protected:
    /// Whether there is nothing to draw: then no picture is created.
    [[nodiscard]] virtual bool isBlank() const { return false; }
    /// Everything that determines how the item looks, except its size: items with the same size and
    /// look share one picture. Empty if each has its own.
    [[nodiscard]] virtual QString look() const { return {}; }

    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    [[nodiscard]] std::shared_ptr<const QImage> picture();
    [[nodiscard]] QImage painted(QSize pixels, qreal pixelRatio);

    std::shared_ptr<const QImage> m_picture; ///< Null if there is nothing to draw.
};

} // namespace ostrel
