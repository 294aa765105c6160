#include "MonitorSummary.h"

#include "MonitorStore.h"

namespace ostrel {

using namespace std::chrono_literals;

MonitorSummary monitorSummary(const MonitorStore &store, const Monitor &monitor)
{
    return {
        .status = store.status(monitor),
        .latestCheck = store.latestCheck(monitor),
        .uptime24h = store.uptime(monitor.id, 24h),
    };
}

} // namespace ostrel
