#include "DisplayFormats.h"

#include "FixedPoint.h"
#include "LocalClock.h"
#include "OneLine.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ostrel {

using namespace std::chrono_literals;

namespace {

bool countsToTwelve(const QString &pattern)
{
    return pattern.contains(QLatin1String("ap"), Qt::CaseInsensitive);
}

} // namespace

QString shortResponseTimeText(Milliseconds time)
{
    if (time < 1000ms)
        return compactResponseTimeText(time);
    return fixedPoint(Seconds(time).count(), 1) + QLatin1Char('s');
}

QString compactResponseTimeText(Milliseconds time)
{
    return fixedPoint(time.count()) + QLatin1String("ms");
}

QString responseTimeText(Milliseconds time)
{
    return fixedPoint(time.count()) + QLatin1String(" ms");
}

QString averageText(Milliseconds average)
{
    return average <= 0ms ? u"--"_s : fixedPoint(average.count());
}

QString rowUptimeText(double share)
{
    return share >= 1 ? u"100%"_s : cardUptimeText(share);
}

QString cardUptimeText(double share)
{
    return fixedPoint(share * 100, 1) + QLatin1Char('%');
}

QString statisticUptimeText(double share)
{
    return share >= 1 ? u"100"_s : fixedPoint(share * 100, 1);
}

QString percentageText(double percentage)
{
    return fixedPoint(percentage, 2) + QLatin1Char('%');
}

QString nameText(const Monitor &monitor)
{
    return oneLine(monitor.displayName());
}

QString addressText(const QString &url)
{
    QString text = url;
    text.remove(QLatin1String("https://")).remove(QLatin1String("http://"));
    while (text.startsWith(QLatin1Char('/')))
        text.remove(0, 1);
    while (text.endsWith(QLatin1Char('/')))
        text.chop(1);
    return oneLine(text);
}

QString clockTimePattern(const ClockStyle &clock)
{
    // Some locales' short pattern has seconds, and "B" (in the afternoon) isn't supported.
    static const QRegularExpression surplus(u"[:.]ss|B"_s);
    QString usual = clock.locale.timeFormat(QLocale::ShortFormat).remove(surplus);
    const bool isTwelve = countsToTwelve(usual);
    if (clock.countsToTwelve.value_or(isTwelve) == isTwelve)
        return usual;
    return isTwelve ? u"HH:mm"_s : u"h:mm AP"_s;
}

QString fullHourPattern(const ClockStyle &clock)
{
    static const QRegularExpression minutes(u"[^\\w\\s]?mm"_s);
    QString pattern = clockTimePattern(clock);
    return countsToTwelve(pattern) ? pattern.remove(minutes) : pattern;
}

QString clockTimeText(Timestamp timestamp, const ClockStyle &clock)
{
    return clock.locale.toString(onClocksOf(clock.timeZone, timestamp).time(),
                                 clockTimePattern(clock));
}

} // namespace ostrel
