#include "AppActions.h"

#include "MonitorCommands.h"
#include "MonitorStore.h"

namespace ostrel {

AppActions::AppActions(const MonitorStore &store, MonitorCommands &commands, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_commands(commands)
{
}

void AppActions::checkNow(const QUuid &monitorId)
{
    m_commands.checkNow(monitorId);
}

void AppActions::togglePause(const QUuid &monitorId)
{
    const auto monitor = m_store.monitor(monitorId);
    if (monitor && monitor->isEnabled)
        m_commands.pause(monitorId);
    else
        m_commands.resume(monitorId);
}

void AppActions::deleteMonitor(const QUuid &monitorId)
{
    m_commands.remove(monitorId);
}

} // namespace ostrel
