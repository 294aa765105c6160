#pragma once

#include "Monitor.h"

#include <QFuture>
#include <QObject>

#include <functional>
#include <optional>

namespace ostrel {

class Sleeper;

/// Watches one monitor: checks it at once, then again and again, one interval after the end of the
/// check before, until it is cancelled. Nothing that fails in a check ends it.
///
/// Keeps the copy of the monitor that it was made with: the first check uses it, and its interval
/// holds for good. Every later check asks for the current record.
class PeriodicTask : public QObject
{
    Q_OBJECT

public:
    /// What a task asks of its engine.
    struct Duties
    {
        /// Whether a check has to wait until endWait().
        std::function<bool(const Monitor &)> mustWait;
        /// Runs and records one check; finishes when that is done.
        std::function<QFuture<void>(const Monitor &)> runCheck;
        /// The record that the next check is to use, or nothing to skip that check.
        std::function<std::optional<Monitor>()> currentMonitor;
    };

    /// @p sleeper outlives the task.
    PeriodicTask(const Monitor &monitor, Duties duties, Sleeper &sleeper, QObject *parent);

    /// Begins, with the first check.
    void start();
    /// Nothing more begins. A check under way still ends, and is recorded.
    void cancel();
    /// Whether the next check waits for endWait().
    [[nodiscard]] bool isWaiting() const { return m_isWaiting; }
    void endWait();

private:
    void check(const Monitor &monitor);
    void sleep();
    void wake();

    const Monitor m_monitor;
    const Duties m_duties;
    Sleeper &m_sleeper;
    bool m_isWaiting = false;
    bool m_isCancelled = false;
};

} // namespace ostrel
