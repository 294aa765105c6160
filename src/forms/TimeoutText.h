#pragma once

#include "Monitor.h"

#include <QLocale>
#include <QString>

#include <optional>

namespace ostrel {

/// A time-out as its field shows it: seconds in @p locale's digits and with its separators, with
/// the fewest digits that distinguish it from every other number.
[[nodiscard]] QString timeoutText(Seconds timeout, const QLocale &locale);

/// Parses @p text, typed in @p locale, as a time-out. Nullopt if it isn't a number above 0: a check
/// needs some time, and infinity can't be stored.
[[nodiscard]] std::optional<Seconds> timeoutFrom(const QString &text, const QLocale &locale);

} // namespace ostrel
