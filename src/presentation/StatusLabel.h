#pragma once

#include "Monitor.h"

#include <QString>

namespace ostrel {

// What a status is called, and the symbol that stands for it.

/// "Up", "Down", "Paused", "Pending".
[[nodiscard]] QString statusWord(MonitorStatus status);
/// The same in the user's language's capitals.
[[nodiscard]] QString pillWord(MonitorStatus status);
/// The name of the symbol on the banner and the pill.
[[nodiscard]] QString statusSymbol(MonitorStatus status);

} // namespace ostrel
