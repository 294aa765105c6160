#include "UptimeTimelineView.h"

#include "SpokenGraphic.h"

namespace ostrel {

UptimeTimelineView::UptimeTimelineView(QQuickItem *parent)
    : PixelItem(parent)
{
}

void UptimeTimelineView::setTimeline(const UptimeTimeline &timeline)
{
    if (m_timeline == timeline)
        return;
    if (m_timeline.bars != timeline.bars)
        update();
    m_timeline = timeline;
    speak();
    Q_EMIT timelineChanged();
}

void UptimeTimelineView::paint(QPainter *painter)
{
    paintUptimeStrip(*painter, m_timeline.bars, size(), m_style);
}

void UptimeTimelineView::componentComplete()
{
    PixelItem::componentComplete();
    speak();
}

void UptimeTimelineView::setStyle(QColor &member, const QColor &color)
{
    if (member == color)
        return;
    member = color;
    update();
    Q_EMIT styleChanged();
}

void UptimeTimelineView::speak()
{
    if (isComponentComplete())
        speakAsGraphic(*this, m_timeline.spokenText);
}

} // namespace ostrel
