#include "DisplayFormats.h"

#include <QDateTime>
#include <QRegularExpression>

#include <array>
#include <charconv>

namespace ostrel {

using namespace std::chrono_literals;

namespace {

/// As C's "%.<decimals>f" in the C locale. QString's own formatting rounds ties up.
QString fixed(double value, int decimals)
{
    std::array<char, 400> text; // room for every double
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, decimals)
                         .ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

bool countsToTwelve(const QString &pattern)
{
    return pattern.contains(QLatin1String("ap"), Qt::CaseInsensitive);
}

} // namespace

QString shortResponseTimeText(Milliseconds time)
{
    if (time < 1000ms)
        return compactResponseTimeText(time);
    return fixed(Seconds(time).count(), 1) + QLatin1Char('s');
}

QString compactResponseTimeText(Milliseconds time)
{
    return fixed(time.count(), 0) + QLatin1String("ms");
}

QString responseTimeText(Milliseconds time)
{
    return fixed(time.count(), 0) + QLatin1String(" ms");
}

QString averageText(Milliseconds average)
{
    return average <= 0ms ? QStringLiteral("--") : fixed(average.count(), 0);
}

QString rowUptimeText(double share)
{
    return share >= 1 ? QStringLiteral("100%") : cardUptimeText(share);
}

QString cardUptimeText(double share)
{
    return fixed(share * 100, 1) + QLatin1Char('%');
}

QString statisticUptimeText(double share)
{
    return share >= 1 ? QStringLiteral("100") : fixed(share * 100, 1);
}

QString percentageText(double percentage)
{
    return fixed(percentage, 2) + QLatin1Char('%');
}

QString addressText(const QString &url)
{
    QString text = url;
    text.remove(QLatin1String("https://")).remove(QLatin1String("http://"));
    while (text.startsWith(QLatin1Char('/')))
        text.remove(0, 1);
    while (text.endsWith(QLatin1Char('/')))
        text.chop(1);
    return text;
}

QString clockTimePattern(const QLocale &locale)
{
    // Some locales' short pattern has seconds, and "B" (in the afternoon) is not understood.
    static const QRegularExpression surplus(QStringLiteral("[:.]ss|B"));
    return locale.timeFormat(QLocale::ShortFormat).remove(surplus);
}

QString fullHourPattern(const QLocale &locale)
{
    static const QRegularExpression minutes(QStringLiteral("[^\\w\\s]?mm"));
    QString pattern = clockTimePattern(locale);
    return countsToTwelve(pattern) ? pattern.remove(minutes) : pattern;
}

QString clockTimeText(Timestamp timestamp, const QTimeZone &timeZone, const QLocale &locale)
{
    const auto instant =
        QDateTime::fromMSecsSinceEpoch(timestamp.time_since_epoch().count(), timeZone);
    return locale.toString(instant.time(), clockTimePattern(locale));
}

} // namespace ostrel
