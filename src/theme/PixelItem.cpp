#include "PixelItem.h"

#include <QHash>
#include <QImage>
#include <QMutex>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <memory>

namespace ostrel {

namespace {

/// The number of pixels that @p length touches, not counting one that is only due to rounding.
int pixelsOf(qreal length)
{
    constexpr qreal tolerance = 1e-6;
    return static_cast<int>(std::ceil(length - tolerance));
}

/// The pictures that are on a screen and can be shared. Any thread, since each window may have a
/// render thread of its own.
class SharedPictures
{
public:
    struct Key
    {
        QString look;
        QSizeF size;
        qreal pixelRatio;

        bool operator==(const Key &) const = default;
    };

    static SharedPictures &instance()
    {
        static SharedPictures pictures;
        return pictures;
    }

    /// The picture for @p key, created by @p paint if it isn't in use.
    template<typename Paint>
    std::shared_ptr<const QImage> picture(const Key &key, Paint paint)
    {
        const QMutexLocker lock(&m_mutex);
        std::weak_ptr<const QImage> &known = m_pictures[key];
        std::shared_ptr<const QImage> picture = known.lock();
        if (!picture) {
            picture = paint();
            known = picture;
            forgetUnused();
        }
        return picture;
    }

private:
    /// Runs rarely, so that it costs little.
    void forgetUnused()
    {
        if (m_pictures.size() < m_limit)
            return;
        m_pictures.removeIf([](const auto &entry) { return entry.value().expired(); });
        m_limit = 2 * m_pictures.size() + firstLimit;
    }

    static constexpr qsizetype firstLimit = 64;

    QMutex m_mutex;
    QHash<Key, std::weak_ptr<const QImage>> m_pictures;
    qsizetype m_limit = firstLimit;
};

size_t qHash(const SharedPictures::Key &key, size_t seed = 0)
{
    return qHashMulti(seed, key.look, key.size.width(), key.size.height(), key.pixelRatio);
}

} // namespace

PixelItem::PixelItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void PixelItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void PixelItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemVisibleHasChanged)
        update();
    QQuickItem::itemChange(change, value);
}

QSGNode *PixelItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData * /*data*/)
{
    std::unique_ptr<QSGNode> previous(oldNode);
    m_picture = picture();
    if (!m_picture)
        return nullptr;
    auto *node = static_cast<QSGImageNode *>(previous.release());
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Nearest);
    }
    node->setTexture(window()->createTextureFromImage(*m_picture));
    node->setRect(QRectF(QPointF(), m_picture->deviceIndependentSize()));
    return node;
}

std::shared_ptr<const QImage> PixelItem::picture()
{
    const qreal pixelRatio = window()->effectiveDevicePixelRatio();
    const QSize pixels(pixelsOf(width() * pixelRatio), pixelsOf(height() * pixelRatio));
    if (pixels.isEmpty() || !isVisible() || isBlank())
        return {};
    const auto paintNew = [&] { return std::make_shared<QImage>(painted(pixels, pixelRatio)); };
    const QString itsLook = look();
    if (itsLook.isEmpty())
        return paintNew();
    // A fraction of a pixel in the size shifts the drawing.
    return SharedPictures::instance().picture({itsLook, size(), pixelRatio}, paintNew);
}

QImage PixelItem::painted(QSize pixels, qreal pixelRatio)
{
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(&painter);
    return image;
}

} // namespace ostrel
