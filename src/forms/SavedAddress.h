#pragma once

#include "Monitor.h"

#include <QString>

namespace ostrel {

/// What is stored for @p url as it was typed: for a website with "https://" before it unless it
/// begins with "http", for a port monitor the host alone. Both without white space around them.
[[nodiscard]] QString savedAddress(MonitorType type, const QString &url);

/// The name of a new monitor of @p address: its host without any "www.", wherever that stands;
/// where it names no host, what comes before its first "/".
[[nodiscard]] QString derivedName(const QString &address);

/// The name of a new port monitor: @p portText stands in it exactly as typed.
[[nodiscard]] QString derivedPortName(const QString &address, const QString &portText);

} // namespace ostrel
