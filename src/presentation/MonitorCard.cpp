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

MonitorCard monitorCard(const MonitorState &state)
{
    return {
        .responseTimeText = cardTimeText(state.latestCheck),
        .uptimeText = cardUptimeText(state.uptime24h),
        .uptimeTone = uptimeTone(state.uptime24h),
    };
}

} // namespace ostrel
