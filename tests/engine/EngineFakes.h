#pragma once

#include "Check.h"
#include "Monitor.h"
#include "MonitorCheck.h"
#include "NetworkPresence.h"
#include "Sleeper.h"

#include <QFuture>
#include <QPointer>
#include <QPromise>

#include <deque>
#include <functional>
#include <vector>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// A monitor with an id of its own.
[[nodiscard]] Monitor makeMonitor(const QString &name = u"Shop"_s);

/// Sleeps that end when the test tells them to.
class ManualSleeper : public Sleeper
{
public:
    struct Sleep
    {
        Seconds duration;
        QPointer<QObject> context;
        std::function<void()> wake;
    };

    void sleep(Seconds duration, QObject *context, std::function<void()> wake) override;
    /// Ends the sleeps that the test has declared due.
    void catchUp() override;

    /// The first @p count of the sleeps are due, but have not been woken yet.
    void fallDue(std::size_t count) { m_due = count; }
    /// Ends the sleeps that have begun so far; new ones that begin meanwhile continue.
    void wakeAll();

    std::vector<Sleep> sleeps;

private:
    std::size_t m_due = 0;
};

/// A network whose presence the test sets.
class ScriptedPresence : public NetworkPresence
{
public:
    using NetworkPresence::setPresent;
};

/// Checks whose outcome the test decides, at once or later.
class ScriptedCheck : public MonitorCheck
{
public:
    [[nodiscard]] QFuture<Check> run(const Monitor &monitor) override;

    /// Sets the outcomes of the next checks, in order; later checks are up.
    void willBe(std::initializer_list<bool> outcomes);
    /// From now on checks stay under way until finishNext().
    void hold();
    void finishNext(bool isUp);
    /// Cancels the next check that is still under way, as the network does when it is destroyed.
    void cancelNext() { m_held.pop_front(); }
    /// Makes the next run throw.
    void throwNext() { m_isThrowing = true; }

    std::vector<Monitor> runs;

private:
    std::deque<bool> m_outcomes;
    bool m_isHolding = false;
    bool m_isThrowing = false;
    std::deque<std::pair<Monitor, QPromise<Check>>> m_held;
};

} // namespace ostrel::test
