#pragma once

#include "PixelItem.h"
#include "UptimeStrip.h"
#include "UptimeTimeline.h"

namespace ostrel {

/// The strip of the uptime timeline.
class UptimeTimelineView : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        ostrel::UptimeTimeline timeline READ timeline WRITE setTimeline NOTIFY timelineChanged)
    Q_PROPERTY(QColor upColor READ upColor WRITE setUpColor NOTIFY styleChanged)
    Q_PROPERTY(QColor downColor READ downColor WRITE setDownColor NOTIFY styleChanged)
    Q_PROPERTY(QColor emptyColor READ emptyColor WRITE setEmptyColor NOTIFY styleChanged)

public:
    explicit UptimeTimelineView(QQuickItem *parent = nullptr);

    [[nodiscard]] const UptimeTimeline &timeline() const { return m_timeline; }
    void setTimeline(const UptimeTimeline &timeline);

    [[nodiscard]] QColor upColor() const { return m_style.up; }
    void setUpColor(const QColor &color) { setStyle(m_style.up, color); }
    [[nodiscard]] QColor downColor() const { return m_style.down; }
    void setDownColor(const QColor &color) { setStyle(m_style.down, color); }
    [[nodiscard]] QColor emptyColor() const { return m_style.empty; }
    void setEmptyColor(const QColor &color) { setStyle(m_style.empty, color); }

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void timelineChanged();
    void styleChanged();

protected:
    void componentComplete() override;

private:
    void setStyle(QColor &member, const QColor &color);
    void speak();

    UptimeTimeline m_timeline;
    StripStyle m_style;
};

} // namespace ostrel
