#include "FieldText.h"

#include <QByteArray>

#include <charconv>
#include <cmath>
#include <system_error>

namespace ostrel {

namespace {

/// Parses all of @p digits as a number, sign included; nullopt if from_chars stops early.
template<typename Number>
std::optional<Number> wholeNumberFrom(const QByteArray &digits)
{
    Number number = {};
    const char *end = digits.constData() + digits.size();
    const auto [stop, error] = std::from_chars(digits.constData(), end, number);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return number;
}

/// Like wholeNumberFrom, which doesn't accept "+".
template<typename Number>
std::optional<Number> signedNumberFrom(const QString &text)
{
    // from_chars accepts nothing beyond ASCII; what doesn't fit becomes '?'.
    const QByteArray characters = text.toLatin1();
    if (characters.startsWith("+-"))
        return std::nullopt;
    return wholeNumberFrom<Number>(characters.startsWith('+') ? characters.sliced(1) : characters);
}

} // namespace

QString trimmedField(const QString &text)
{
    return text.trimmed();
}

std::optional<qint64> integerFrom(const QString &text)
{
    return signedNumberFrom<qint64>(text);
}

std::optional<double> decimalFrom(const QString &text)
{
    const auto number = signedNumberFrom<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

} // namespace ostrel
