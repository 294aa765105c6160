#include "RelativeDate.h"

#include "CalendarDays.h"
#include "IcuLocale.h"
#include "LocalClock.h"

#include <unicode/reldatefmt.h>

#include <cstdlib>

namespace ostrel {

namespace {

using namespace std::chrono;

constexpr qint64 daysPerWeek = 7;
constexpr qint64 monthsPerYear = 12;

/// A signed number of units: negative for the past.
struct Distance
{
    qint64 count;
    URelativeDateTimeUnit unit;
};

/// Whole calendar months, rounded toward zero. @p earlier must not be later than @p later.
qint64 wholeMonthsBetween(const QDateTime &earlier, const QDateTime &later)
{
    const QDate begin = earlier.date();
    const QDate end = later.date();
    const int months = (end.year() - begin.year()) * 12 + end.month() - begin.month();
    return earlier.addMonths(months) > later ? months - 1 : months;
}

qint64 signedMonthsBetween(Timestamp from, Timestamp to, const QTimeZone &timeZone)
{
    const QDateTime begin = onClocksOf(timeZone, from);
    const QDateTime end = onClocksOf(timeZone, to);
    return to < from ? -wholeMonthsBetween(end, begin) : wholeMonthsBetween(begin, end);
}

Distance calendarDistance(qint64 days, qint64 months)
{
    if (std::abs(days) < daysPerWeek)
        return {days, UDAT_REL_UNIT_DAY};
    if (months == 0)
        return {days / daysPerWeek, UDAT_REL_UNIT_WEEK};
    if (std::abs(months) < monthsPerYear)
        return {months, UDAT_REL_UNIT_MONTH};
    return {months / monthsPerYear, UDAT_REL_UNIT_YEAR};
}

Distance distanceBetween(Timestamp from, Timestamp to, const QTimeZone &timeZone)
{
    const auto time = to - from;
    if (abs(time) < 1min)
        return {duration_cast<seconds>(time).count(), UDAT_REL_UNIT_SECOND};
    if (abs(time) < 1h)
        return {duration_cast<minutes>(time).count(), UDAT_REL_UNIT_MINUTE};
    const qint64 days = wholeDaysBetween(from, to, timeZone);
    if (days == 0)
        return {duration_cast<hours>(time).count(), UDAT_REL_UNIT_HOUR};
    return calendarDistance(days, signedMonthsBetween(from, to, timeZone));
}

} // namespace

QString relativeDateText(Timestamp timestamp, Timestamp now, const QLocale &locale,
                         const QTimeZone &timeZone)
{
    const Distance distance = distanceBetween(now, timestamp, timeZone);
    UErrorCode status = U_ZERO_ERROR;
    const icu::RelativeDateTimeFormatter formatter(icuLocale(locale), nullptr, UDAT_STYLE_LONG,
                                                   UDISPCTX_CAPITALIZATION_NONE, status);
    icu::UnicodeString text;
    formatter.format(static_cast<double>(distance.count), distance.unit, text, status);
    // If ICU's data is missing, show the time of day instead.
    if (U_FAILURE(status))
        return locale.toString(onClocksOf(timeZone, timestamp), QLocale::ShortFormat);
    return QString::fromUtf16(text.getBuffer(), text.length());
}

} // namespace ostrel
