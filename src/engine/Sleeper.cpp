#include "Sleeper.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

namespace ostrel {

namespace {

using std::chrono::milliseconds;

// A timer's length is a 32-bit number of milliseconds, 24.8 days; longer waits take several.
constexpr milliseconds longestTimer{std::numeric_limits<int>::max()};

// 200 years: no wait that anybody sees the end of is longer, and the deadline doesn't overflow.
constexpr Seconds longestSleep{200.0 * 366 * 24 * 3600};

void waitUntil(QDeadlineTimer deadline, QObject *context, std::function<void()> wake)
{
    const auto remaining = std::chrono::ceil<milliseconds>(deadline.remainingTimeAsDuration());
    const auto step = std::min(remaining, longestTimer);
    QTimer::singleShot(step, Qt::PreciseTimer, context,
                       [deadline, context, wake = std::move(wake)]() mutable {
                           if (deadline.hasExpired())
                               wake();
                           else
                               waitUntil(deadline, context, std::move(wake));
                       });
}

} // namespace

void TimerSleeper::sleep(Seconds duration, QObject *context, std::function<void()> wake)
{
    const auto bounded = std::clamp(duration, shortestSleep, longestSleep);
    const auto length = std::chrono::ceil<milliseconds>(bounded);
    waitUntil(QDeadlineTimer(length, Qt::PreciseTimer), context, std::move(wake));
}

} // namespace ostrel
