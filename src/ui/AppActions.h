#pragma once

#include <QObject>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

class MonitorCommands;
class MonitorStore;

/// The views' commands for a monitor. They do nothing if there is no monitor with that id. Main
/// thread.
class AppActions : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")

public:
    /// Both must outlive this object.
    AppActions(const MonitorStore &store, MonitorCommands &commands, QObject *parent = nullptr);

    /// Returns at once; the result arrives through the store.
    Q_INVOKABLE void checkNow(const QUuid &monitorId);
    /// Stops the checks of a watched monitor, and restarts those of a paused one.
    Q_INVOKABLE void togglePause(const QUuid &monitorId);
    /// Removes the monitor and its history.
    Q_INVOKABLE void deleteMonitor(const QUuid &monitorId);

private:
    const MonitorStore &m_store;
    MonitorCommands &m_commands;
};

} // namespace ostrel
