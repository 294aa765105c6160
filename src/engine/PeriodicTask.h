#pragma once

#include "Monitor.h"

#include <QFuture>
#include <QObject>

#include <functional>
#include <optional>

namespace ostrel {

class Sleeper;

/// Watches one monitor: checks it at once, then again and again, each time one interval after the
/// end of the previous check, until it is cancelled. No failure in a check ends it.
///
/// Keeps the copy of the monitor that it was created with: the first check uses it, and its
/// interval never changes. Every later check asks for the current record.
class PeriodicTask : public QObject
{
    Q_OBJECT

public:
    /// What a task needs from its engine.
    struct Duties
    {
        /// Whether a check must wait until endWait().
        std::function<bool(const Monitor &)> mustWait;
        /// Runs and records one check; finishes when that is done.
        std::function<QFuture<void>(const Monitor &)> runCheck;
        /// The record for the next check; nullopt to skip that check.
        std::function<std::optional<Monitor>()> currentMonitor;
    };

    /// @p sleeper must outlive the task.
    PeriodicTask(const Monitor &monitor, Duties duties, Sleeper &sleeper, QObject *parent);

    /// Starts the first check.
    void start();
    /// No further check starts. One that is running still ends, and is recorded.
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
