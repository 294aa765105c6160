#pragma once

#include "Monitor.h"

#include <QString>

namespace ostrel {

// The word and the symbol for a status.

/// "Up", "Down", "Paused", "Pending".
[[nodiscard]] QString statusWord(MonitorStatus status);
/// The same in capitals, by the rules of the user's language.
[[nodiscard]] QString pillWord(MonitorStatus status);
/// The name of the symbol on the banner and the pill.
[[nodiscard]] QString statusSymbol(MonitorStatus status);

} // namespace ostrel
