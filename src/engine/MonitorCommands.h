#pragma once

#include <QObject>
#include <QSet>
#include <QUuid>

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
    void checkNow(const QUuid &monitorId);

Q_SIGNALS:
    /// A check of checkNow() has begun or ended.
    void checkingChanged(const QUuid &monitorId, bool isChecking);

private:
    MonitorStore &m_store;
    MonitoringEngine &m_engine;
    QSet<QUuid> m_checking; ///< The monitors with a running check of checkNow().
};

} // namespace ostrel
