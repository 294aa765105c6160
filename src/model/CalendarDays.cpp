#include "CalendarDays.h"

#include "LocalClock.h"

namespace ostrel {

namespace {

// The result if the calendar gives no number.
constexpr qint64 unknownDays = 999;

} // namespace

qint64 wholeDaysBetween(Timestamp from, Timestamp to, const QTimeZone &timeZone)
{
    const QDateTime begin = onClocksOf(timeZone, from);
    const QDateTime end = onClocksOf(timeZone, to);
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
