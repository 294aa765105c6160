#include "FaviconImage.h"

#include "ContinueOn.h"
#include "FaviconService.h"

#include <QPainter>
#include <QQmlEngine>

namespace ostrel {

namespace {

constexpr auto serviceProperty = "ostrelIcons";

FaviconService *iconsOf(const QQuickItem &item)
{
    const QQmlEngine *views = qmlEngine(&item);
    return views ? views->property(serviceProperty).value<FaviconService *>() : nullptr;
}

} // namespace

FaviconImage::FaviconImage(QQuickItem *parent)
    : PixelItem(parent)
{
    connect(this, &FaviconImage::radiusChanged, this, [this] { update(); });
}

void FaviconImage::useIcons(QQmlEngine &views, FaviconService &icons)
{
    views.setProperty(serviceProperty, QVariant::fromValue(&icons));
}

void FaviconImage::setUrlString(const QString &urlString)
{
    if (m_urlString == urlString)
        return;
    m_urlString = urlString;
    setIcon({});
    if (isComponentComplete())
        lookUp();
    Q_EMIT urlStringChanged();
}

QString FaviconImage::placeholderLetter() const
{
    return FaviconService::placeholderLetter(m_urlString);
}

void FaviconImage::paint(QPainter *painter)
{
    if (m_icon.isNull())
        return;
    const auto pixels = (size() * painter->device()->devicePixelRatioF()).toSize();
    // In one step from the source, as good as it gets; a transformed brush only interpolates.
    QBrush brush(m_icon.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    brush.setTransform(QTransform::fromScale(width() / pixels.width(), height() / pixels.height()));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(brush);
    painter->drawRoundedRect(boundingRect(), m_radius, m_radius);
}

void FaviconImage::componentComplete()
{
    PixelItem::componentComplete();
    lookUp();
}

void FaviconImage::lookUp()
{
    FaviconService *icons = iconsOf(*this);
    if (!icons || m_urlString.isEmpty())
        return;
    continueOn(icons->icon(m_urlString), this, [this, asked = m_urlString](const QImage &icon) {
        if (asked == m_urlString)
            setIcon(icon);
    });
}

void FaviconImage::setIcon(const QImage &icon)
{
    const bool hadIcon = hasIcon();
    m_icon = icon;
    update();
    if (hasIcon() != hadIcon)
        Q_EMIT hasIconChanged();
}

} // namespace ostrel
