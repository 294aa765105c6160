#include "AppActions.h"

#include "MonitorStore.h"
#include "MonitoringEngine.h"

namespace ostrel {

AppActions::AppActions(MonitorStore &store, MonitoringEngine &engine, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_engine(engine)
{
}

void AppActions::checkNow(const QUuid &monitorId)
{
    if (const auto monitor = m_store.monitor(monitorId))
        m_engine.checkNow(*monitor);
}

void AppActions::togglePause(const QUuid &monitorId)
{
    auto monitor = m_store.monitor(monitorId);
    if (!monitor)
        return;
    monitor->isEnabled = !monitor->isEnabled;
    m_store.updateMonitor(*monitor);
    if (monitor->isEnabled)
        m_engine.startMonitoring(*monitor);
    else
        m_engine.stopMonitoring(*monitor);
}

void AppActions::deleteMonitor(const QUuid &monitorId)
{
    const auto monitor = m_store.monitor(monitorId);
    if (!monitor)
        return;
    m_engine.stopMonitoring(*monitor);
    m_store.deleteMonitor(monitorId);
}

} // namespace ostrel
