#include "MonitorCommands.h"

#include "ContinueOn.h"
#include "MonitorStore.h"
#include "MonitoringEngine.h"

namespace ostrel {

MonitorCommands::MonitorCommands(MonitorStore &store, MonitoringEngine &engine, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_engine(engine)
{
}

void MonitorCommands::create(const Monitor &monitor)
{
    m_store.addMonitor(monitor);
    m_engine.startMonitoring(monitor);
}

void MonitorCommands::update(const Monitor &monitor)
{
    m_store.updateMonitor(monitor);
    m_engine.startMonitoring(monitor);
}

void MonitorCommands::pause(const QUuid &monitorId)
{
    auto monitor = m_store.monitor(monitorId);
    if (!monitor || !monitor->isEnabled)
        return;
    monitor->isEnabled = false;
    m_store.updateMonitor(*monitor);
    m_engine.stopMonitoring(*monitor);
}

void MonitorCommands::resume(const QUuid &monitorId)
{
    auto monitor = m_store.monitor(monitorId);
    if (!monitor || monitor->isEnabled)
        return;
    monitor->isEnabled = true;
    update(*monitor);
}

void MonitorCommands::remove(const QUuid &monitorId)
{
    const auto monitor = m_store.monitor(monitorId);
    if (!monitor)
        return;
    m_engine.stopMonitoring(*monitor);
    m_store.deleteMonitor(monitorId);
}

void MonitorCommands::checkNow(const QUuid &monitorId)
{
    const auto monitor = m_store.monitor(monitorId);
    if (!monitor || m_checking.contains(monitorId))
        return;
    m_checking.insert(monitorId);
    Q_EMIT checkingChanged(monitorId, true);
    whenFinished(m_engine.checkNow(*monitor), this, [this, monitorId](const QFuture<void> &) {
        m_checking.remove(monitorId);
        Q_EMIT checkingChanged(monitorId, false);
    });
}

} // namespace ostrel
