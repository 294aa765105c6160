#pragma once

#include "Timestamp.h"

#include <QDateTime>
#include <QTimeZone>

namespace ostrel {

// Local time in a time zone. Qt knows no zone for some values of TZ: a path, or a rule without its
// dates ("MEZ-1MESZ"). It then returns an invalid system zone, which here means the computer's
// local time as the C library sets it, or UTC if the C library doesn't know the zone either.

[[nodiscard]] QDateTime onClocksOf(const QTimeZone &timeZone, Timestamp timestamp);
/// If a clock change skips that time, the result is another time or invalid.
[[nodiscard]] QDateTime onClocksOf(const QTimeZone &timeZone, QDate date, QTime time);

} // namespace ostrel
