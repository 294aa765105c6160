#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace ostrel {

class MonitorStore;

/// The fixed moment of the gallery: a Friday, 15:42 UTC.
[[nodiscard]] Timestamp cannedNow();

/// A made-up monitor with its checks.
struct CannedMonitor
{
    Monitor monitor;
    std::vector<Check> checks = {}; ///< Oldest first.

    [[nodiscard]] Check &latest() { return checks.back(); }
};

/// The names of the samples of cannedMonitor().
[[nodiscard]] QStringList cannedMonitorSamples();
/// The monitor of one of cannedMonitorSamples(); nothing for any other name.
[[nodiscard]] std::optional<CannedMonitor> cannedMonitor(const QString &sample);

/// The monitors of a window: one is down, the others aren't.
[[nodiscard]] std::vector<CannedMonitor> cannedMonitors();
/// The same, with every monitor up.
[[nodiscard]] std::vector<CannedMonitor> cannedMonitorsUp();
/// More than any window has room for.
[[nodiscard]] std::vector<CannedMonitor> manyCannedMonitors();
/// Names, addresses and figures that need more room than there is.
[[nodiscard]] std::vector<CannedMonitor> longCannedMonitors();

/// Adds @p canned, with its checks, at the end of @p store.
void addTo(MonitorStore &store, const CannedMonitor &canned);

} // namespace ostrel
