#pragma once

#include "Timestamp.h"

#include <QTimeZone>

namespace ostrel {

/// The number of whole calendar days from @p from to @p to on the clocks of @p timeZone, rounded
/// toward zero: negative when @p to has passed by a day or more. A day that a clock change makes
/// 23 or 25 hours long is still one day. An invalid zone stands for the computer's own clocks.
/// 999 if the calendar has no date for one of the two.
[[nodiscard]] qint64 wholeDaysBetween(Timestamp from, Timestamp to,
                                      const QTimeZone &timeZone = QTimeZone::systemTimeZone());

} // namespace ostrel
