#include "MonitoringEngine.h"

#include "ContinueOn.h"
#include "MonitorCheck.h"
#include "MonitorStore.h"
#include "NotificationManager.h"
#include "PeriodicTask.h"
#include "Sleeper.h"
#include "WakeSignal.h"

namespace ostrel {

namespace {

// One failure may be chance; the second in a row is told, once.
constexpr qint64 failuresUntilDown = 2;

} // namespace

MonitoringEngine::MonitoringEngine(const EngineServices &services, QObject *parent)
    : QObject(parent)
    , m_services(services)
{
    connect(&m_services.wakeSignal, &WakeSignal::didWake, this, &MonitoringEngine::checkAfterWake);
}

MonitoringEngine::~MonitoringEngine() = default;

void MonitoringEngine::start()
{
    if (m_isRunning)
        return;
    m_isRunning = true;
    Q_EMIT isRunningChanged();

    const auto monitors = m_services.store.monitors();
    for (const Monitor &monitor : monitors) {
        if (monitor.isEnabled)
            startMonitoring(monitor);
    }
}

void MonitoringEngine::startMonitoring(const Monitor &monitor)
{
    stopMonitoring(monitor);
    if (!monitor.isEnabled)
        return;

    auto *task = new PeriodicTask(
        monitor, [this](const Monitor &current) { return runCheck(current); },
        [this, id = monitor.id] { return enabledMonitor(id); }, m_services.sleeper, this);
    m_tasks.insert(monitor.id, task);
    Q_EMIT tasksChanged();
    task->start();
}

void MonitoringEngine::stopMonitoring(const Monitor &monitor)
{
    if (PeriodicTask *task = m_tasks.take(monitor.id)) {
        task->cancel();
        // Later, because the task itself may be what leads here.
        task->deleteLater();
    }
    Q_EMIT tasksChanged();
}

void MonitoringEngine::checkNow(const Monitor &monitor)
{
    static_cast<void>(runCheck(monitor));
}

void MonitoringEngine::handleResult(const Check &check, const Monitor &monitor)
{
    m_services.store.addCheck(check);
    if (check.isUp)
        handleSuccess(check, monitor);
    else
        handleFailure(check, monitor);
}

QFuture<void> MonitoringEngine::runCheck(const Monitor &monitor)
{
    auto &check = monitor.type == MonitorType::http ? m_services.httpCheck : m_services.portCheck;
    return continueOn(check.run(monitor), this,
                      [this, monitor](const Check &result) { handleResult(result, monitor); });
}

std::optional<Monitor> MonitoringEngine::enabledMonitor(const QUuid &id) const
{
    auto monitor = m_services.store.monitor(id);
    return monitor && monitor->isEnabled ? monitor : std::nullopt;
}

void MonitoringEngine::checkAfterWake()
{
    const auto monitors = m_services.store.monitors();
    for (const Monitor &monitor : monitors) {
        if (monitor.isEnabled)
            checkNow(monitor);
    }
}

void MonitoringEngine::handleFailure(const Check &check, const Monitor &monitor)
{
    const qint64 count = m_consecutiveFailures.value(monitor.id) + 1;
    setConsecutiveFailures(monitor.id, count);
    if (count == failuresUntilDown && monitor.notifyOnDown)
        m_services.notifications.notifyDown(monitor, check.error);
}

void MonitoringEngine::handleSuccess(const Check &check, const Monitor &monitor)
{
    const bool wasDown = m_consecutiveFailures.value(monitor.id) >= failuresUntilDown;
    setConsecutiveFailures(monitor.id, 0);
    if (wasDown && monitor.notifyOnRecovery)
        m_services.notifications.notifyRecovery(monitor, Milliseconds(check.responseTime));
}

void MonitoringEngine::setConsecutiveFailures(const QUuid &monitorId, qint64 count)
{
    m_consecutiveFailures.insert(monitorId, count);
    Q_EMIT consecutiveFailuresChanged();
}

} // namespace ostrel
