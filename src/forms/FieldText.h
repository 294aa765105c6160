#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// @p text without the white space and line ends at both its ends: every character with Unicode's
/// property White_Space, no-break spaces included. Zero-width characters aren't white space.
[[nodiscard]] QString trimmedField(const QString &text);

/// The decimal integer that @p text is: ASCII digits after at most one "+" or "-". Nothing for
/// everything else, blanks included, and for what doesn't fit.
[[nodiscard]] std::optional<qint64> integerFrom(const QString &text);

/// The decimal number that @p text is, whatever the user's locale: an optional sign, digits with
/// an optional ".", an optional exponent. Nothing for everything else: blanks, group separators,
/// hexadecimal digits, and infinities and NaN, which no stored file can hold. What is too large or
/// too small for a double is nothing as well.
[[nodiscard]] std::optional<double> decimalFrom(const QString &text);

} // namespace ostrel
