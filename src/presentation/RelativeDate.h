#pragma once

#include "Timestamp.h"

#include <QLocale>
#include <QString>
#include <QTimeZone>

namespace ostrel {

/// When @p timestamp was, seen from @p now, in whole words of @p locale and by name where there
/// is one: "now", "2 minutes ago", "yesterday", "last week", "in 3 hours".
///
/// The largest unit that fits counts, and what it leaves over is dropped. Days, months and years
/// are those of the calendar in @p timeZone.
[[nodiscard]] QString relativeDateText(Timestamp timestamp, Timestamp now,
                                       const QLocale &locale = QLocale(),
                                       const QTimeZone &timeZone = QTimeZone::systemTimeZone());

} // namespace ostrel
