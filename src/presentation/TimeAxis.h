#pragma once

#include "ClockStyle.h"
#include "Timestamp.h"

#include <QString>

#include <vector>

namespace ostrel {

/// A mark on a time scale.
struct TimeTick
{
    Timestamp time;
    QString label = {};

    bool operator==(const TimeTick &) const = default;
};

/// The marks from @p first to @p last, both included, at round times of @p clock.
///
/// The step is 1, 2, 5, 10, 15 or 30 minutes, or 1, 2, 3, 6, 12 or 24 hours: the one whose number
/// of marks is closest to 5, the smaller on a tie. Spans of many days, which only occur if the
/// clock was set, have a step of several days. Labels are the hour ("6 PM", "18:00"), with minutes
/// for steps below an hour ("6:15 PM"), in the format of @p clock; midnight is shown as the day
/// that begins ("Mon 3"), in the language of the texts.
[[nodiscard]] std::vector<TimeTick> timeTicks(Timestamp first, Timestamp last,
                                              const ClockStyle &clock);

} // namespace ostrel
