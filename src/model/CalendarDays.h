#pragma once

#include "Timestamp.h"

#include <QTimeZone>

namespace ostrel {

/// The number of whole calendar days from @p from to @p to in local time of @p timeZone, rounded
/// toward zero: negative if @p to is earlier by a day or more. A day that a clock change makes 23
/// or 25 hours long is still one day. An invalid zone means the computer's own local time. 999 if
/// the calendar has no date for one of the two.
[[nodiscard]] qint64 wholeDaysBetween(Timestamp from, Timestamp to,
                                      const QTimeZone &timeZone = QTimeZone::systemTimeZone());

} // namespace ostrel
