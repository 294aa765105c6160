#pragma once

#include <QLocale>

#include <unicode/locid.h>

namespace ostrel {

/// ICU's name for @p locale; its root locale if it knows none.
[[nodiscard]] icu::Locale icuLocale(const QLocale &locale);

} // namespace ostrel
