#pragma once

#include <chrono>
#include <functional>

namespace ostrel {

/// A time on a continuous clock, which goes on while the computer sleeps and is never set: the time
/// since some moment before the program's start.
using ContinuousTime = std::chrono::nanoseconds;
using ContinuousClock = std::function<ContinuousTime()>;

} // namespace ostrel
