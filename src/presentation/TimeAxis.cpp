#include "TimeAxis.h"

#include "DisplayFormats.h"
#include "LocalClock.h"
#include "TextLanguage.h"

#include <algorithm>
#include <array>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono;

constexpr std::ptrdiff_t wantedMarks = 5;
// Steps with more marks than this can't be the closest; computing their marks would take time.
constexpr qint64 maxMarks = 4 * wantedMarks;
constexpr std::array<minutes, 12> steps = {1min, 2min, 5min, 10min, 15min, 30min,
                                           1h,   2h,   3h,   6h,    12h,   24h};

using Times = std::vector<QDateTime>;

Timestamp timestampOf(const QDateTime &time)
{
    return Timestamp(milliseconds(time.toMSecsSinceEpoch()));
}

/// The instant @p minuteOfDay minutes after the beginning of @p day, by the local time of @p
/// timeZone; invalid if a clock change skips it.
QDateTime instantAt(QDate day, qint64 minuteOfDay, const QTimeZone &timeZone)
{
    constexpr qint64 minutesPerDay = minutes(24h).count();
    const QDate date = day.addDays(minuteOfDay / minutesPerDay);
    const QTime time = QTime::fromMSecsSinceStartOfDay(
        static_cast<int>(milliseconds(minutes(minuteOfDay % minutesPerDay)).count()));
    const QDateTime instant = onClocksOf(timeZone, date, time);
    return instant.time() == time && instant.date() == date ? instant : QDateTime();
}

Times roundTimes(Timestamp first, Timestamp last, minutes step, const QTimeZone &timeZone)
{
    const QDateTime local = onClocksOf(timeZone, first);
    const qint64 begin = local.time().hour() * 60 + local.time().minute();
    // One more day, in case clocks are set back within the span.
    const qint64 end = begin + duration_cast<minutes>(last - first + 24h).count();

    Times times;
    for (qint64 minute = begin - begin % step.count(); minute <= end; minute += step.count()) {
        const QDateTime instant = instantAt(local.date(), minute, timeZone);
        if (instant.isValid() && timestampOf(instant) >= first && timestampOf(instant) <= last)
            times.push_back(instant);
    }
    return times;
}

/// The marks at the step whose number of marks is closest to the wanted one.
struct Marks
{
    Times times;
    minutes step;
};

std::ptrdiff_t miss(const Times &times)
{
    return std::abs(std::ssize(times) - wantedMarks);
}

Marks bestMarks(Timestamp first, Timestamp last, const QTimeZone &timeZone)
{
    const minutes leastStep = duration_cast<minutes>((last - first) / maxMarks);
    const minutes manyDays = ceil<days>((last - first) / wantedMarks);
    const minutes longest = std::max(steps.back(), manyDays);

    Marks best{roundTimes(first, last, longest, timeZone), longest};
    // Starts with the longest, so that the smaller one wins a tie.
    for (auto step = steps.rbegin(); step != steps.rend() && *step >= leastStep; ++step) {
        Times times = roundTimes(first, last, *step, timeZone);
        if (miss(times) <= miss(best.times))
            best = {std::move(times), *step};
    }
    return best;
}

QString labelOf(const QDateTime &time, minutes step, const ClockStyle &clock)
{
    if (time.time() == QTime(0, 0))
        return textLanguage().toString(time.date(), u"ddd d"_s);
    const QString pattern = step < 1h ? clockTimePattern(clock) : fullHourPattern(clock);
    return clock.locale.toString(time.time(), pattern);
}

} // namespace

std::vector<TimeTick> timeTicks(Timestamp first, Timestamp last, const ClockStyle &clock)
{
    const Marks marks = bestMarks(first, last, clock.timeZone);
    std::vector<TimeTick> ticks;
    ticks.reserve(marks.times.size());
    for (const QDateTime &time : marks.times)
        ticks.push_back({timestampOf(time), labelOf(time, marks.step, clock)});
    return ticks;
}

} // namespace ostrel
