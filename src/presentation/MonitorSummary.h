#pragma once

#include "Check.h"
#include "Monitor.h"

#include <optional>

namespace ostrel {

class MonitorStore;

/// A monitor's current state, as the store derives it.
struct MonitorSummary
{
    MonitorStatus status = MonitorStatus::pending;
    std::optional<Check> latestCheck = {};
    double uptime24h = 1; ///< A share in 0…1.
};

[[nodiscard]] MonitorSummary monitorSummary(const MonitorStore &store, const Monitor &monitor);

} // namespace ostrel
