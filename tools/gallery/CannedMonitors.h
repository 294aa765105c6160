#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace ostrel {

class MonitorStore;

/// The moment that never passes in the gallery: a Friday, 15:42 UTC.
[[nodiscard]] Timestamp cannedNow();

/// A made-up monitor as it is, with the checks it has had.
struct CannedMonitor
{
    Monitor monitor;
    std::vector<Check> checks = {}; ///< Oldest first.

    [[nodiscard]] Check &latest() { return checks.back(); }
};

/// What each monitor of cannedMonitor() shows.
[[nodiscard]] QStringList cannedMonitorSamples();
/// One of cannedMonitorSamples(); nothing for another name.
[[nodiscard]] std::optional<CannedMonitor> cannedMonitor(const QString &sample);

/// The monitors of a window: one that is down among some that aren't.
[[nodiscard]] std::vector<CannedMonitor> cannedMonitors();
/// The same, with every monitor up.
[[nodiscard]] std::vector<CannedMonitor> cannedMonitorsUp();
/// More than any window has room for.
[[nodiscard]] std::vector<CannedMonitor> manyCannedMonitors();
/// Names, addresses and figures that take more room than there is.
[[nodiscard]] std::vector<CannedMonitor> longCannedMonitors();

/// Puts @p canned, with its checks, at the end of @p store.
void addTo(MonitorStore &store, const CannedMonitor &canned);

} // namespace ostrel
