#pragma once

#include <chrono>
#include <functional>

namespace ostrel {

/// A time on a continuous clock, one that goes on while the computer sleeps and that nobody sets:
/// how long it is past some moment before the program's start.
using ContinuousTime = std::chrono::nanoseconds;
using ContinuousClock = std::function<ContinuousTime()>;

} // namespace ostrel
