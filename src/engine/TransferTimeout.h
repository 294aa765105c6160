#pragma once

#include "Monitor.h"

#include <chrono>

namespace ostrel {

/// A monitor's time-out in whole milliseconds, rounded up; a negative one is none at all, and what
/// is over a year is a year.
[[nodiscard]] std::chrono::milliseconds transferTimeout(Seconds timeout);

} // namespace ostrel
