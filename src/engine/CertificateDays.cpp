#include "CertificateDays.h"

#include <QDateTime>

namespace ostrel {

namespace {

// What is counted where the calendar gives no number.
constexpr qint64 unknownDays = 999;

QDateTime dateTime(Timestamp timestamp, const QTimeZone &timeZone)
{
    return QDateTime::fromMSecsSinceEpoch(timestamp.time_since_epoch().count(), timeZone);
}

} // namespace

qint64 wholeDaysBetween(Timestamp from, Timestamp to, const QTimeZone &timeZone)
{
    const QDateTime begin = dateTime(from, timeZone);
    const QDateTime end = dateTime(to, timeZone);
    if (!begin.isValid() || !end.isValid())
        return unknownDays;

    const qint64 dates = begin.daysTo(end);
    const QDateTime sameTimeOnLastDate = begin.addDays(dates);
    if (dates > 0 && sameTimeOnLastDate > end)
        return dates - 1;
    if (dates < 0 && sameTimeOnLastDate < end)
        return dates + 1;
    return dates;
}

} // namespace ostrel
