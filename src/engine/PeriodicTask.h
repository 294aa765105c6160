#pragma once

#include "Monitor.h"

#include <QFuture>
#include <QObject>

#include <functional>

namespace ostrel {

class Sleeper;

/// Watches one monitor: checks it at once, then again and again, one interval after the end of the
/// check before, until it is cancelled.
///
/// Keeps the copy of the monitor that it was made with: the first check uses it, and its interval
/// holds for good. Every later check asks for the current record.
class PeriodicTask : public QObject
{
    Q_OBJECT

public:
    /// Runs and records one check; finishes when that is done.
    using RunCheck = std::function<QFuture<void>(const Monitor &)>;
    /// The record that the next check is to use, or nothing to skip that check.
    using CurrentMonitor = std::function<std::optional<Monitor>()>;

    /// @p sleeper outlives the task.
    PeriodicTask(const Monitor &monitor, RunCheck runCheck, CurrentMonitor currentMonitor,
                 Sleeper &sleeper, QObject *parent);

    /// Begins, with the first check.
    void start();
    /// Nothing more begins. A check under way still ends, and is recorded.
    void cancel();

private:
    void check(const Monitor &monitor);
    void sleep();
    void wake();

    const Monitor m_monitor;
    const RunCheck m_runCheck;
    const CurrentMonitor m_currentMonitor;
    Sleeper &m_sleeper;
    bool m_isCancelled = false;
};

} // namespace ostrel
