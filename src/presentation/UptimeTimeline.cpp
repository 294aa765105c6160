#include "UptimeTimeline.h"

#include "DisplayFormats.h"
#include "ToneRules.h"

#include <QCoreApplication>

#include <algorithm>

namespace ostrel {

namespace {

struct TimelineTexts
{
    Q_DECLARE_TR_FUNCTIONS(UptimeTimeline)
};

std::vector<const Check *> sortedByTime(std::span<const Check> checks)
{
    std::vector<const Check *> sorted;
    sorted.reserve(checks.size());
    for (const Check &check : checks)
        sorted.push_back(&check);
    std::ranges::stable_sort(sorted, {}, &Check::timestamp);
    return sorted;
}

UptimeTimeline emptyTimeline()
{
    const QString noData = TimelineTexts::tr("No data");
    return {.ageText = noData, .spokenText = TimelineTexts::tr("Uptime: %1").arg(noData)};
}

QString spokenText(const UptimeTimeline &timeline, qsizetype total, qsizetype down)
{
    return TimelineTexts::tr("Uptime %1, checks: %2, failed: %3, oldest: %4")
        .arg(timeline.percentageText, QString::number(total), QString::number(down),
             timeline.ageText);
}

} // namespace

UptimeTimeline uptimeTimeline(std::span<const Check> checks, Timestamp now)
{
    if (checks.empty())
        return emptyTimeline();

    const auto sorted = sortedByTime(checks);
    const auto total = std::ssize(sorted);
    const auto up = std::ranges::count(checks, true, &Check::isUp);
    const double percentage = static_cast<double>(up) / static_cast<double>(total) * 100;

    UptimeTimeline timeline;
    for (const std::size_t index : sampledIndices(sorted.size()))
        timeline.bars.push_back(sorted[index]->isUp);
    timeline.percentageText = percentageText(percentage);
    timeline.percentageTone = percentageTone(percentage);
    timeline.ageText = ageText(sorted.front()->timestamp, now);
    timeline.spokenText = spokenText(timeline, total, total - up);
    return timeline;
}

std::vector<std::size_t> sampledIndices(std::size_t count)
{
    const std::size_t step = std::max<std::size_t>(1, count / UptimeTimeline::maxBars);
    std::vector<std::size_t> indices(std::min(count, UptimeTimeline::maxBars));
    for (std::size_t i = 0; i < indices.size(); ++i)
        indices[i] = i * step;
    return indices;
}

QString ageText(Timestamp oldest, Timestamp now)
{
    const auto hours = std::chrono::duration_cast<std::chrono::hours>(now - oldest).count();
    if (hours < 1)
        return TimelineTexts::tr("< 1 hour ago");
    if (hours > 23)
        return TimelineTexts::tr("%1d ago").arg(hours / 24);
    return TimelineTexts::tr("%1h ago").arg(hours);
}

} // namespace ostrel
