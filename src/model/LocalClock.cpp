#include "LocalClock.h"

namespace ostrel {

QDateTime onClocksOf(const QTimeZone &timeZone, Timestamp timestamp)
{
    const qint64 milliseconds = timestamp.time_since_epoch().count();
    return timeZone.isValid() ? QDateTime::fromMSecsSinceEpoch(milliseconds, timeZone)
                              : QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::LocalTime);
}

QDateTime onClocksOf(const QTimeZone &timeZone, QDate date, QTime time)
{
    return timeZone.isValid() ? QDateTime(date, time, timeZone)
                              : QDateTime(date, time, Qt::LocalTime);
}

} // namespace ostrel
