#pragma once

#include <QImage>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <memory>

class QPainter;

namespace ostrel {

/// An item that a painter draws, as a picture whose pixels are the screen's: also where the item's
/// size is no whole number of them, nothing is scaled, so that what is round stays round and no
/// line is lost. While it isn't visible there is no picture. Derive from it by its full name, by
/// which alone the QML tools find it.
class PixelItem : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit PixelItem(QQuickItem *parent = nullptr);

    /// Draws the item in its own coordinates, on a transparent ground; after each update().
    virtual void paint(QPainter *painter) = 0;

protected:
    /// Whether there is nothing to draw: no picture is made then.
    [[nodiscard]] virtual bool isBlank() const { return false; }
    /// All that decides how the item looks, but for its size: items of the same size and look share
    /// one picture. Empty where each has its own.
    [[nodiscard]] virtual QString look() const { return {}; }

    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    [[nodiscard]] std::shared_ptr<const QImage> picture();
    [[nodiscard]] QImage painted(QSize pixels, qreal pixelRatio);

    std::shared_ptr<const QImage> m_picture; ///< Null where there is nothing to draw.
};

} // namespace ostrel
