#include "NotificationRules.h"

#include "CalendarDays.h"

namespace ostrel {

namespace {

std::optional<qint64> certificateDays(const Monitor &monitor, const Check &check,
                                      const QTimeZone &timeZone)
{
    // A certificate seen before a transport error is recorded, but the error says enough.
    if (!check.statusCode || !check.sslExpiresAt)
        return std::nullopt;
    const qint64 days = wholeDaysBetween(check.timestamp, *check.sslExpiresAt, timeZone);
    return monitor.sslExpiryWarningDays >= days ? std::optional(days) : std::nullopt;
}

} // namespace

bool isSlow(const Monitor &monitor, const Check &check)
{
    const auto &threshold = monitor.responseTimeThreshold;
    return check.isUp && check.statusCode && threshold &&
           *threshold < Milliseconds(check.responseTime);
}

DueNotifications dueNotifications(const Monitor &monitor, const Check &check, qint64 failuresBefore,
                                  const QTimeZone &timeZone)
{
    const bool wasDown = failuresBefore >= failuresUntilDown;
    const bool goesDown = !check.isUp && failuresBefore + 1 == failuresUntilDown;
    return {
        .slow = isSlow(monitor, check),
        .certificateDays = certificateDays(monitor, check, timeZone),
        .down = goesDown && monitor.notifyOnDown,
        .recovery = check.isUp && wasDown && monitor.notifyOnRecovery,
    };
}

} // namespace ostrel
