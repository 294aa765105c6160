#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// @p text without the white space and line ends at both ends: every character with Unicode's
/// property White_Space, no-break spaces included. Zero-width characters aren't white space.
[[nodiscard]] QString trimmedField(const QString &text);

/// Parses @p text as a decimal integer: ASCII digits after at most one "+" or "-". Nullopt for
/// everything else, blanks included, and if it doesn't fit.
[[nodiscard]] std::optional<qint64> integerFrom(const QString &text);

/// Parses @p text as a decimal number, independently of the user's locale: an optional sign, digits
/// with an optional ".", an optional exponent. Nullopt for everything else: blanks, group
/// separators, hexadecimal digits, and infinities and NaN, which can't be stored in a file. Also
/// nullopt if the number is too large or too small for a double.
[[nodiscard]] std::optional<double> decimalFrom(const QString &text);

} // namespace ostrel
