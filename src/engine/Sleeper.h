#pragma once

#include "Monitor.h"

#include <functional>

class QObject;

namespace ostrel {

/// Waits that a test can end by hand.
class Sleeper
{
public:
    Sleeper() = default;
    Sleeper(const Sleeper &) = delete;
    Sleeper &operator=(const Sleeper &) = delete;
    virtual ~Sleeper() = default;

    /// Calls @p wake on the calling thread after @p duration, unless @p context has died by then.
    /// Never calls it at once, not even for a duration of zero or less.
    virtual void sleep(Seconds duration, QObject *context, std::function<void()> wake) = 0;
};

/// Sleeps on the event loop's monotonic clock.
class TimerSleeper : public Sleeper
{
public:
    /// No sleep is shorter, so that an interval of 0 in a file that was edited by hand can't keep
    /// the main thread busy.
    static constexpr Seconds shortestSleep{0.1};

    void sleep(Seconds duration, QObject *context, std::function<void()> wake) override;
};

} // namespace ostrel
