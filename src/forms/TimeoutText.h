#pragma once

#include "Monitor.h"

#include <QLocale>
#include <QString>

#include <optional>

namespace ostrel {

/// A time-out as its field shows it: its seconds in @p locale's digits and with its separators,
/// no digit more than it takes to tell it from every other.
[[nodiscard]] QString timeoutText(Seconds timeout, const QLocale &locale);

/// The time-out that @p text, typed in @p locale, stands for. Nothing where it is no number above
/// 0: a check needs some time, and no infinity can be stored.
[[nodiscard]] std::optional<Seconds> timeoutFrom(const QString &text, const QLocale &locale);

} // namespace ostrel
