#pragma once

#include <QObject>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

class MonitorCommands;
class MonitorStore;

/// The commands to a monitor that the views give. All of it does nothing where there is no monitor
/// of that id. Main thread.
class AppActions : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")

public:
    /// Both outlive this object.
    AppActions(const MonitorStore &store, MonitorCommands &commands, QObject *parent = nullptr);

    /// Returns at once; the result arrives through the store.
    Q_INVOKABLE void checkNow(const QUuid &monitorId);
    /// Stops the checks of a monitor that is watched, and starts those of a paused one anew.
    Q_INVOKABLE void togglePause(const QUuid &monitorId);
    /// Removes the monitor and its history.
    Q_INVOKABLE void deleteMonitor(const QUuid &monitorId);

private:
    const MonitorStore &m_store;
    MonitorCommands &m_commands;
};

} // namespace ostrel
