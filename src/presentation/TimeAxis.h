#pragma once

#include "Timestamp.h"

#include <QLocale>
#include <QString>
#include <QTimeZone>

#include <vector>

namespace ostrel {

/// A mark on a time scale.
struct TimeTick
{
    Timestamp time;
    QString label = {};

    bool operator==(const TimeTick &) const = default;
};

/// The marks between @p first and @p last, both included, at round times on the clocks of
/// @p timeZone.
///
/// The step is 1, 2, 5, 10, 15 or 30 minutes, or 1, 2, 3, 6, 12 or 24 hours: the one whose number
/// of marks is nearest to 5, the smaller on a tie. Spans of many days, which only a clock that was
/// set leaves behind, take a step of several days. Labels are the hour ("6 PM", "18:00"), below
/// steps of an hour with minutes ("6:15 PM"); midnight is told as the day that begins ("Mon 3").
[[nodiscard]] std::vector<TimeTick> timeTicks(Timestamp first, Timestamp last,
                                              const QTimeZone &timeZone, const QLocale &locale);

} // namespace ostrel
