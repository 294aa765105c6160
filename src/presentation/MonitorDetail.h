#pragma once

#include "DetailBadges.h"
#include "MonitorSummary.h"
#include "ResponseSeries.h"
#include "UptimeTimeline.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QTimeZone>
#include <QUrl>
#include <QVariantList>

#include <array>
#include <span>

namespace ostrel {

class MonitorStore;

/// One statistic card.
struct Statistic
{
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(QString unit MEMBER unit)
    Q_PROPERTY(ostrel::Tones::Tone tone MEMBER tone)

public:
    QString title = {};
    QString value = {};
    QString unit = {}; ///< Empty if the value is missing.
    Tone tone = Tone::Secondary;

    bool operator==(const Statistic &) const = default;
};

/// The data of the detail page, as the store derives it.
struct DetailSource
{
    MonitorSummary summary = {};
    double averageResponse24h = 0; ///< Milliseconds; 0 if there is none.
    double uptime7d = 1;           ///< Shares in 0…1.
    double uptime30d = 1;
    std::span<const Check> lastDay = {}; ///< The checks of the last 24 hours.
    std::span<const Check> history = {}; ///< All stored checks, oldest first.
};

/// What the page's wording depends on, beside the language of the texts.
struct Viewpoint
{
    Timestamp now;
    QTimeZone timeZone = QTimeZone::systemTimeZone();
};

/// One monitor on its own page.
struct MonitorDetail
{
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString address MEMBER address)
    Q_PROPERTY(QString url MEMBER url)
    Q_PROPERTY(QUrl website MEMBER website)
    Q_PROPERTY(bool isWebsite READ isWebsite)
    Q_PROPERTY(QString pillSymbol MEMBER pillSymbol)
    Q_PROPERTY(QString pillText MEMBER pillText)
    Q_PROPERTY(ostrel::Tones::Tone statusTone MEMBER statusTone)
    Q_PROPERTY(QString lastCheckedText MEMBER lastCheckedText)
    Q_PROPERTY(QVariantList badges READ badgeValues)
    Q_PROPERTY(QVariantList statistics READ statisticValues)
    Q_PROPERTY(bool hasRecentChecks MEMBER hasRecentChecks)
    Q_PROPERTY(QString recentCountText MEMBER recentCountText)
    Q_PROPERTY(ostrel::ResponseSeries series MEMBER series)
    Q_PROPERTY(ostrel::UptimeTimeline timeline MEMBER timeline)

public:
    /// How many of the newest checks the timeline covers.
    static constexpr std::size_t timelineChecks = 200;

    QString name = {};
    QString address = {};
    QString url = {};
    QUrl website = {}; ///< Empty if no browser could open it, as with a port.
    QString pillSymbol = {};
    QString pillText = {};
    Tone statusTone = Tone::Muted;
    QString lastCheckedText = {}; ///< Empty before the first check.
    QList<Badge> badges = {};
    std::array<Statistic, 4> statistics = {};
    bool hasRecentChecks = false; ///< Within the last 24 hours.
    QString recentCountText = {};
    ResponseSeries series = {};
    UptimeTimeline timeline = {};

    [[nodiscard]] bool isWebsite() const { return !website.isEmpty(); }
    /// The lists as values for QML's repeaters.
    [[nodiscard]] QVariantList badgeValues() const;
    [[nodiscard]] QVariantList statisticValues() const;

    bool operator==(const MonitorDetail &) const = default;
};

[[nodiscard]] MonitorDetail monitorDetail(const Monitor &monitor, const DetailSource &source,
                                          const Viewpoint &viewpoint);
[[nodiscard]] MonitorDetail monitorDetail(const MonitorStore &store, const Monitor &monitor,
                                          const Viewpoint &viewpoint);

} // namespace ostrel
