#include "MonitorState.h"

#include "MonitorStore.h"

namespace ostrel {

using namespace std::chrono_literals;

MonitorState monitorState(const MonitorStore &store, const Monitor &monitor)
{
    return {
        .status = store.status(monitor),
        .latestCheck = store.latestCheck(monitor),
        .uptime24h = store.uptime(monitor.id, 24h),
    };
}

} // namespace ostrel
