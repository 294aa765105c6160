#pragma once

#include "ContinuousClock.h"
#include "Monitor.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <map>

namespace ostrel {

/// Asynchronous waits that a test can end by hand.
class Sleeper
{
public:
    Sleeper() = default;
    Sleeper(const Sleeper &) = delete;
    Sleeper &operator=(const Sleeper &) = delete;
    virtual ~Sleeper() = default;

    /// Calls @p wake on the calling thread after @p duration, unless @p context has been destroyed
    /// by then. Never calls it synchronously, not even for a duration of zero or less.
    virtual void sleep(Seconds duration, QObject *context, std::function<void()> wake) = 0;
    /// The computer has woken from sleep: ends at once the waits that would have ended meanwhile.
    virtual void catchUp() = 0;
};

/// Waits that continue while the computer sleeps, on one timer of the event loop. Main thread.
class TimerSleeper : public QObject, public Sleeper
{
    Q_OBJECT

public:
    /// Lower bound for a wait, so that an interval of 0 in a file that was edited by hand can't
    /// keep the main thread busy.
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

    /// Sets the timer to end with the first wait, or soon enough to notice that the clock has
    /// jumped.
    void setTimer();

    const ContinuousClock m_clock;
    std::multimap<ContinuousTime, Sleep> m_sleeps; ///< Ordered by their ends.
    QTimer m_timer;
};

} // namespace ostrel
