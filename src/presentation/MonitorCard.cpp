#include "MonitorCard.h"

#include "DisplayFormats.h"
#include "ToneRules.h"

namespace ostrel {

namespace {

QString cardTimeText(const std::optional<Check> &latestCheck)
{
    if (!latestCheck || !latestCheck->isUp)
        return {};
    return responseTimeText(Milliseconds(latestCheck->responseTime));
}

} // namespace

MonitorCard monitorCard(const MonitorSummary &summary)
{
    return {
        .responseTimeText = cardTimeText(summary.latestCheck),
        .uptimeText = cardUptimeText(summary.uptime24h),
        .uptimeTone = uptimeTone(summary.uptime24h),
    };
}

} // namespace ostrel
