#pragma once

#include "Timestamp.h"

#include <QLocale>
#include <QString>
#include <QTimeZone>

namespace ostrel {

/// The time of @p timestamp relative to @p now, in whole units, in words of @p locale, and by name
/// if there is one: "now", "2 minutes ago", "yesterday", "last week", "in 3 hours".
///
/// The largest unit that fits is used, and the remainder is dropped. Days, months and years are
/// those of the calendar in @p timeZone.
[[nodiscard]] QString relativeDateText(Timestamp timestamp, Timestamp now, const QLocale &locale,
                                       const QTimeZone &timeZone = QTimeZone::systemTimeZone());

} // namespace ostrel
