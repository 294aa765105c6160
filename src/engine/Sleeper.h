#pragma once

#include "ContinuousClock.h"
#include "Monitor.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <map>

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
    /// The computer has woken from sleep: ends at once the sleeps that would have ended meanwhile.
    virtual void catchUp() = 0;
};

/// Sleeps that go on while the computer sleeps, on one timer of the event loop's. Main thread.
class TimerSleeper : public QObject, public Sleeper
{
    Q_OBJECT

public:
    /// No sleep is shorter, so that an interval of 0 in a file that was edited by hand can't keep
    /// the main thread busy.
    static constexpr Seconds shortestSleep{0.1};

    explicit TimerSleeper(ContinuousClock clock, QObject *parent = nullptr);

    void sleep(Seconds duration, QObject *context, std::function<void()> wake) override;
    void catchUp() override;

private:
    struct Sleep
    {
        QPointer<QObject> context;
        std::function<void()> wake;
    };

    /// Has the timer end with the first sleep, or soon enough to see that the clock has jumped.
    void setTimer();

    const ContinuousClock m_clock;
    std::multimap<ContinuousTime, Sleep> m_sleeps; ///< By their end.
    QTimer m_timer;
};

} // namespace ostrel
