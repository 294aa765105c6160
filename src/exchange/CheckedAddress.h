#pragma once

#include "Monitor.h"

#include <QString>

namespace ostrel {

/// What @p monitor checks, as one text: a website's address, or "host:port" with an IPv6 address in
/// brackets; the host alone if a port monitor has no port.
[[nodiscard]] QString checkedAddress(const Monitor &monitor);

} // namespace ostrel
