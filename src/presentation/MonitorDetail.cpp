#include "MonitorDetail.h"

#include "Address.h"
#include "DisplayFormats.h"
#include "MonitorStore.h"
#include "RelativeDate.h"
#include "StatusLabel.h"
#include "TextLanguage.h"
#include "ToneRules.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto day = 24h;

struct DetailTexts
{
    Q_DECLARE_TR_FUNCTIONS(MonitorDetail)
};

QString lastCheckedText(const std::optional<Check> &latestCheck, const Viewpoint &viewpoint)
{
    if (!latestCheck)
        return {};
    const QString when =
        relativeDateText(latestCheck->timestamp, viewpoint.now, textLanguage(), viewpoint.timeZone);
    return DetailTexts::tr("Last checked %1").arg(when);
}

Statistic averageStatistic(Milliseconds average)
{
    const bool isMissing = average <= 0ms;
    return {
        .title = DetailTexts::tr("Avg Response"),
        .value = averageText(average),
        .unit = isMissing ? QString() : u"ms"_s,
        .tone = averageTone(average),
    };
}

Statistic uptimeStatistic(const QString &title, double share)
{
    return {
        .title = title,
        .value = statisticUptimeText(share),
        .unit = u"%"_s,
        .tone = uptimeTone(share),
    };
}

QUrl websiteOf(const Monitor &monitor)
{
    const QUrl url = parseAddress(monitor.url).value_or(QUrl());
    const bool isOfTheWeb = url.scheme() == u"https"_s || url.scheme() == u"http"_s;
    return monitor.type == MonitorType::http && isOfTheWeb ? url : QUrl();
}

std::span<const Check> newest(std::span<const Check> history, std::size_t count)
{
    return history.last(std::min(count, history.size()));
}

template<typename List>
QVariantList variantsOf(const List &values)
{
    QVariantList variants;
    for (const auto &value : values)
        variants.append(QVariant::fromValue(value));
    return variants;
}

} // namespace

QVariantList MonitorDetail::badgeValues() const
{
    return variantsOf(badges);
}

QVariantList MonitorDetail::statisticValues() const
{
    return variantsOf(statistics);
}

MonitorDetail monitorDetail(const Monitor &monitor, const DetailSource &source,
                            const Viewpoint &viewpoint)
{
    const auto &summary = source.summary;
    return {
        .name = nameText(monitor),
        .address = addressText(monitor.url),
        .url = monitor.url,
        .website = websiteOf(monitor),
        .pillSymbol = statusSymbol(summary.status),
        .pillText = pillWord(summary.status),
        .statusTone = statusTone(summary.status),
        .lastCheckedText = lastCheckedText(summary.latestCheck, viewpoint),
        .badges = detailBadges(monitor, summary.latestCheck, viewpoint.now, viewpoint.timeZone),
        .statistics =
            {
                averageStatistic(Milliseconds(source.averageResponse24h)),
                uptimeStatistic(DetailTexts::tr("Uptime 24h"), summary.uptime24h),
                uptimeStatistic(DetailTexts::tr("Uptime 7d"), source.uptime7d),
                uptimeStatistic(DetailTexts::tr("Uptime 30d"), source.uptime30d),
            },
        .hasRecentChecks = !source.lastDay.empty(),
        .recentCountText = DetailTexts::tr("%1 in 24h").arg(source.lastDay.size()),
        .series = responseSeries(source.lastDay),
        .timeline =
            uptimeTimeline(newest(source.history, MonitorDetail::timelineChecks), viewpoint.now),
    };
}

MonitorDetail monitorDetail(const MonitorStore &store, const Monitor &monitor,
                            const Viewpoint &viewpoint)
{
    const auto lastDay = store.recentChecks(monitor.id, day);
    return monitorDetail(monitor,
                         {
                             .summary = monitorSummary(store, monitor),
                             .averageResponse24h = store.averageResponseTime(monitor.id, day),
                             .uptime7d = store.uptime(monitor.id, 7 * day),
                             .uptime30d = store.uptime(monitor.id, 30 * day),
                             .lastDay = lastDay,
                             .history = store.checks(monitor.id),
                         },
                         viewpoint);
}

} // namespace ostrel
