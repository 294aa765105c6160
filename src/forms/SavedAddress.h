#pragma once

#include "Monitor.h"

#include <QString>

namespace ostrel {

/// The stored form of @p url as typed: for a website with "https://" prepended unless it begins
/// with "http", for a port monitor the host alone. Both without surrounding white space.
[[nodiscard]] QString savedAddress(MonitorType type, const QString &url);

/// The name of a new monitor of @p address: its host without any "www.", wherever in it that is; if
/// it has no host, the part before its first "/".
[[nodiscard]] QString derivedName(const QString &address);

/// The name of a new port monitor: it contains @p portText exactly as typed.
[[nodiscard]] QString derivedPortName(const QString &address, const QString &portText);

} // namespace ostrel
