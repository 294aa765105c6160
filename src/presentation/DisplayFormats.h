#pragma once

#include "ClockStyle.h"
#include "Monitor.h"

#include <QString>

namespace ostrel {

// How values are displayed. Numbers have a decimal point in every locale; ties are rounded to even.

/// "245ms", from one second on "12.3s": if space is limited.
[[nodiscard]] QString shortResponseTimeText(Milliseconds time);
/// "1532ms", however long.
[[nodiscard]] QString compactResponseTimeText(Milliseconds time);
/// "245 ms".
[[nodiscard]] QString responseTimeText(Milliseconds time);
/// "192"; "--" for 0 or less, which means "none".
[[nodiscard]] QString averageText(Milliseconds average);

/// "99.9%" for a share in 0…1, and "100%" for exactly 1.
[[nodiscard]] QString rowUptimeText(double share);
/// "99.9%" for a share in 0…1, and "100.0%" for exactly 1.
[[nodiscard]] QString cardUptimeText(double share);
/// "99.9" for a share in 0…1, and "100" for exactly 1.
[[nodiscard]] QString statisticUptimeText(double share);
/// "99.87%" for a percentage in 0…100.
[[nodiscard]] QString percentageText(double percentage);

/// The display name of @p monitor, on one line.
[[nodiscard]] QString nameText(const Monitor &monitor);
/// An address on one line, without its scheme, and without slashes at its ends.
[[nodiscard]] QString addressText(const QString &url);

/// The pattern for hour and minute, in the format of QLocale::toString().
[[nodiscard]] QString clockTimePattern(const ClockStyle &clock);
/// The pattern for a full hour: "h AP" if the clock counts to twelve, otherwise with minutes.
[[nodiscard]] QString fullHourPattern(const ClockStyle &clock);
/// The time of day: "3:42 PM", "15:42".
[[nodiscard]] QString clockTimeText(Timestamp timestamp, const ClockStyle &clock);

} // namespace ostrel
