#pragma once

#include "Monitor.h"

#include <chrono>

namespace ostrel {

/// A monitor's time-out in whole milliseconds, rounded up and clamped to 0…366 days.
[[nodiscard]] std::chrono::milliseconds transferTimeout(Seconds timeout);

} // namespace ostrel
