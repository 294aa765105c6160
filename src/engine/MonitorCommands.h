#pragma once

#include <QObject>
#include <QUuid>

namespace ostrel {

class MonitorStore;
class MonitoringEngine;
struct Monitor;

/// What the user does to a monitor, carried out on the store and the engine together. Each returns
/// at once; the results of checks arrive through the store. Main thread.
class MonitorCommands : public QObject
{
    Q_OBJECT

public:
    /// Both outlive this object.
    MonitorCommands(MonitorStore &store, MonitoringEngine &engine, QObject *parent = nullptr);

    /// Stores @p monitor, a new one, and begins to watch it, with a check at once.
    void create(const Monitor &monitor);
    /// Stores @p monitor in place of the one of its id and watches it anew, with a check at once; a
    /// disabled one is only stopped. One that is stored no more isn't stored again, but still gets
    /// that check.
    void update(const Monitor &monitor);

    // These do nothing if no monitor has that id.

    /// Stops the checks. Does nothing to a monitor that is paused.
    void pause(const QUuid &monitorId);
    /// Begins to watch a paused monitor anew, with a check at once. Does nothing to any other.
    void resume(const QUuid &monitorId);
    /// Stops the checks and removes the monitor and its history.
    void remove(const QUuid &monitorId);
    /// Checks once, enabled or not.
    void checkNow(const QUuid &monitorId);

private:
    MonitorStore &m_store;
    MonitoringEngine &m_engine;
};

} // namespace ostrel
