#pragma once

#include <array>
#include <chrono>

namespace ostrel {

/// A period before now over which uptimes are told.
struct UptimeWindow
{
    const char *name;
    std::chrono::hours length;
};

inline constexpr std::array uptimeWindows = {
    UptimeWindow{"24h", std::chrono::hours(24)},
    UptimeWindow{"7d", std::chrono::hours(7 * 24)},
    UptimeWindow{"30d", std::chrono::hours(30 * 24)},
};

} // namespace ostrel
