#pragma once

#include "Check.h"
#include "Monitor.h"

#include <vector>

namespace ostrel {

/// What the past of a demo's monitor was like.
struct DemoPast
{
    Milliseconds usualTime{100};
    int outages = 0;        ///< In the month.
    int failedStatus = 503; ///< Of a website's outages; 0 if it didn't answer at all.
    QString failure = {};   ///< The error of its failed checks.
    bool hasCertificate = false;
    Timestamp certificateEnd = {};
};

/// A month of checks of @p monitor until @p now, the oldest first: slower by day than by night,
/// with outages of an hour or a few. The same for the same arguments. There are fewer than the
/// store keeps, so that those of the demo itself have room.
[[nodiscard]] std::vector<Check> demoHistory(const Monitor &monitor, const DemoPast &past,
                                             Timestamp now);

} // namespace ostrel
