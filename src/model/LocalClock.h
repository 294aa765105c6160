#pragma once

#include "Timestamp.h"

#include <QDateTime>
#include <QTimeZone>

namespace ostrel {

// What the clocks of a time zone show. Qt knows no zone for some of what TZ may hold: a path, or a
// rule without its dates ("MEZ-1MESZ"). The invalid zone that it then calls the system's stands for
// the computer's own clocks as the C library sets them, which is UTC where that knows none either.

[[nodiscard]] QDateTime onClocksOf(const QTimeZone &timeZone, Timestamp timestamp);
/// Where the clocks skip that time, another one or an invalid one.
[[nodiscard]] QDateTime onClocksOf(const QTimeZone &timeZone, QDate date, QTime time);

} // namespace ostrel
