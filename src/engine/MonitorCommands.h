#pragma once

#include "MonitorChange.h"

#include <QFuture>
#include <QHash>
#include <QList>
#include <QObject>
#include <QUuid>

#include <variant>

namespace ostrel {

class MonitorStore;
class MonitoringEngine;
struct Monitor;

/// The user's actions on monitors, carried out on the store and the engine together. Each returns
/// at once; the results of checks arrive through the store. Main thread.
class MonitorCommands : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object.
    MonitorCommands(MonitorStore &store, MonitoringEngine &engine, QObject *parent = nullptr);
    /// For a program that watches nothing: changes what is stored, and checks nothing.
    explicit MonitorCommands(MonitorStore &store, QObject *parent = nullptr);

    /// Makes all of @p changes, in their order, or none of them, and saves once. Returns what
    /// became of each, or why none was made; see planChanges().
    [[nodiscard]] std::variant<QList<ChangeOutcome>, Refusal>
    apply(const QList<MonitorChange> &changes);

    /// Stores the new @p monitor and starts watching it, with a check at once.
    void create(const Monitor &monitor);
    /// Replaces the monitor with the same id by @p monitor and restarts watching it, with a check
    /// at once; a disabled one is only stopped. A monitor that is no longer stored isn't stored
    /// again, but still gets that check.
    void update(const Monitor &monitor);

    // These do nothing if no monitor has that id.

    /// Stops the checks. Does nothing if the monitor is paused.
    void pause(const QUuid &monitorId);
    /// Restarts watching a paused monitor, with a check at once. Does nothing if it isn't paused.
    void resume(const QUuid &monitorId);
    /// Stops the checks and removes the monitor and its history.
    void remove(const QUuid &monitorId);
    /// Checks once, enabled or not. Does nothing while the check of an earlier call is running.
    /// Finishes once the check, the running one too, is recorded or dropped.
    QFuture<void> checkNow(const QUuid &monitorId);

Q_SIGNALS:
    /// A check of checkNow() has begun or ended.
    void checkingChanged(const QUuid &monitorId, bool isChecking);

private:
    void createWith(const std::vector<Check> &history, const Monitor &monitor);
    void carryOut(const PlannedChange &planned);
    void watch(const Monitor &monitor);
    void stopWatching(const Monitor &monitor);

    MonitorStore &m_store;
    MonitoringEngine *m_engine; ///< Null if nothing is watched.
    /// The running checks of checkNow(), by their monitors.
    QHash<QUuid, QFuture<void>> m_checking;
};

} // namespace ostrel
