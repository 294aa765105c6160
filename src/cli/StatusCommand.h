#pragma once

#include "Invocation.h"

#include <QByteArray>

#include <optional>

namespace ostrel {

class MonitorStore;

/// Every monitor of @p store with its status, last result and uptimes over 24 hours, 7 days and 30
/// days, in the store's order: either one human-readable line each, or a JSON array of objects with
/// the keys "id", "name", "url", "type", "status", "latestCheck" (left out if there is none), and
/// "uptime" with "24h", "7d" and "30d" in 0…1. UTF-8, with a newline at the end.
[[nodiscard]] QByteArray describeStatus(const MonitorStore &store, OutputFormat format);

/// describeStatus() of the folder, which is only read; nullopt if the monitors can't be read. If
/// the folder or the file doesn't exist, there are no monitors.
[[nodiscard]] std::optional<QByteArray> readStatus(const StatusInvocation &invocation);

} // namespace ostrel
