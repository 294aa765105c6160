#include "FaviconImage.h"

#include "ContinueOn.h"
#include "FaviconService.h"
#include "ThemeFonts.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QQmlEngine>

#include <cmath>

using namespace Qt::StringLiterals;

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
    connect(this, &FaviconImage::lookChanged, this, [this] { update(); });
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
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    if (hasIcon())
        paintIcon(painter);
    else
        paintPlaceholder(painter);
}

void FaviconImage::paintIcon(QPainter *painter)
{
    const auto pixels = (size() * painter->device()->devicePixelRatioF()).toSize();
    // Scaled in one step from the source, with the best quality; a transformed brush only
    // interpolates.
    QBrush brush(m_icon.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    brush.setTransform(QTransform::fromScale(width() / pixels.width(), height() / pixels.height()));
    painter->setBrush(brush);
    painter->drawRoundedRect(boundingRect(), m_radius, m_radius);
}

void FaviconImage::paintPlaceholder(QPainter *painter)
{
    painter->setBrush(m_plateColor);
    painter->drawRoundedRect(boundingRect(), m_radius, m_radius);
    const QString letter = placeholderLetter();
    const QFont font = ThemeFonts::face(QFont::Bold, m_letterSize);
    const QFontMetricsF metrics(font);
    const qreal left = (width() - std::ceil(metrics.horizontalAdvance(letter))) / 2;
    const qreal baseline =
        (height() + std::round(metrics.ascent()) - std::round(metrics.descent())) / 2;
    painter->setFont(font);
    painter->setPen(m_letterColor);
    painter->drawText(QPointF(left, baseline), letter);
}

QString FaviconImage::look() const
{
    if (hasIcon())
        return {};
    return u"letter %1 %2 %3 %4 "_s
               .arg(m_plateColor.name(QColor::HexArgb), m_letterColor.name(QColor::HexArgb))
               .arg(m_letterSize)
               .arg(m_radius) +
           placeholderLetter();
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
    m_icon = icon;
    update();
}

} // namespace ostrel
