#include "TimeoutText.h"

#include "FieldText.h"

#include <cmath>

namespace ostrel {

QString timeoutText(Seconds timeout, const QLocale &locale)
{
    return locale.toString(timeout.count(), 'f', QLocale::FloatingPointShortest);
}

std::optional<Seconds> timeoutFrom(const QString &text, const QLocale &locale)
{
    bool isNumber = false;
    const double seconds = locale.toDouble(trimmedField(text), &isNumber);
    if (!isNumber || !std::isfinite(seconds) || seconds <= 0)
        return std::nullopt;
    return Seconds(seconds);
}

} // namespace ostrel
