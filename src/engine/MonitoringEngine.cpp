#include "MonitoringEngine.h"

#include "Address.h"
#include "ContinueOn.h"
#include "LoopbackHost.h"
#include "MonitorCheck.h"
#include "MonitorStore.h"
#include "NetworkPresence.h"
#include "NotificationManager.h"
#include "NotificationRules.h"
#include "PeriodicTask.h"
#include "Sleeper.h"
#include "WakeSignal.h"

#include <QPromise>

#include <exception>
#include <memory>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// Upper bound for how long results are dropped because of an announced sleep, not counting the
/// sleep itself: if no wake is reported by then, the sleep isn't coming.
constexpr auto longestNearness = 30s;

} // namespace

MonitoringEngine::MonitoringEngine(const EngineServices &services, QObject *parent)
    : QObject(parent)
    , m_services(services)
{
    m_nearSleep.setSingleShot(true);
    connect(&m_nearSleep, &QTimer::timeout, this, &MonitoringEngine::checkAllAnew);
    connect(&m_services.wakeSignal, &WakeSignal::willSleep, this, &MonitoringEngine::holdForSleep);
    connect(&m_services.wakeSignal, &WakeSignal::didWake, this, &MonitoringEngine::checkAllAnew);
    connect(&m_services.networkPresence, &NetworkPresence::isPresentChanged, this, [this] {
        if (m_isRunning && m_services.networkPresence.isPresent())
            checkAllAnew();
    });
}

MonitoringEngine::~MonitoringEngine() = default;

void MonitoringEngine::start()
{
    if (m_isRunning)
        return;
    m_isRunning = true;
    Q_EMIT isRunningChanged();

    for (const Monitor &monitor : enabledMonitors())
        startMonitoring(monitor);
}

void MonitoringEngine::startMonitoring(const Monitor &monitor)
{
    stopMonitoring(monitor);
    if (!monitor.isEnabled)
        return;

    const PeriodicTask::Duties duties = {
        .mustWait = [this](const Monitor &current) { return mustWait(current); },
        .runCheck =
            [this](const Monitor &current) { return runCheck(current, Occasion::scheduled); },
        .currentMonitor = [this, id = monitor.id] { return enabledMonitor(id); },
    };
    auto *task = new PeriodicTask(monitor, duties, m_services.sleeper, this);
    m_tasks.insert(monitor.id, task);
    Q_EMIT tasksChanged();
    task->start();
}

void MonitoringEngine::stopMonitoring(const Monitor &monitor)
{
    if (PeriodicTask *task = m_tasks.take(monitor.id)) {
        task->cancel();
        // Deferred, because the task itself may be in the call stack.
        task->deleteLater();
    }
    Q_EMIT tasksChanged();
}

QFuture<void> MonitoringEngine::checkNow(const Monitor &monitor)
{
    return runCheck(monitor, Occasion::requested);
}

void MonitoringEngine::handleResult(const Check &check, const Monitor &monitor)
{
    const qint64 failuresBefore = m_consecutiveFailures.value(monitor.id);
    const DueNotifications due = dueNotifications(monitor, check, failuresBefore);
    tellOfResponse(due, check, monitor);
    m_services.store.addCheck(check);
    setConsecutiveFailures(monitor.id, check.isUp ? 0 : failuresBefore + 1);
    tellOfOutage(due, check, monitor);
}

QFuture<void> MonitoringEngine::runCheck(const Monitor &monitor, Occasion occasion)
{
    m_checkedInThisEra.insert(monitor.id);
    const auto promise = std::make_shared<QPromise<void>>();
    promise->start();
    const Errand errand{.monitor = monitor, .occasion = occasion, .era = m_era};
    whenFinished(begin(monitor), this, [this, errand, promise](const QFuture<Check> &check) {
        end(check, errand);
        promise->finish();
    });
    return promise->future();
}

QFuture<Check> MonitoringEngine::begin(const Monitor &monitor)
{
    auto &check = monitor.type == MonitorType::http ? m_services.httpCheck : m_services.portCheck;
    return beginCheck(check, monitor);
}

void MonitoringEngine::end(const QFuture<Check> &check, const Errand &errand)
try {
    if (errand.era != m_era)
        return;
    const Check result = outcomeOf(check, errand.monitor);
    if (!isNoFaultOfTheSite(result, errand))
        handleResult(result, errand.monitor);
} catch (const std::exception &) {
    return; // It can't be recorded; the next one may be.
}

bool MonitoringEngine::isNoFaultOfTheSite(const Check &check, const Errand &errand) const
{
    return m_nearSleep.isActive() ||
           (errand.occasion == Occasion::scheduled && !check.isUp && isOutOfReach(errand.monitor));
}

bool MonitoringEngine::mustWait(const Monitor &monitor) const
{
    return m_nearSleep.isActive() || isOutOfReach(monitor);
}

bool MonitoringEngine::isOutOfReach(const Monitor &monitor) const
{
    return !m_services.networkPresence.isPresent() &&
           !isLoopbackHost(hostOf(monitor.url).value_or(monitor.url));
}

std::optional<Monitor> MonitoringEngine::enabledMonitor(const QUuid &id) const
{
    auto monitor = m_services.store.monitor(id);
    return monitor && monitor->isEnabled ? monitor : std::nullopt;
}

QList<Monitor> MonitoringEngine::enabledMonitors() const
{
    QList<Monitor> monitors = m_services.store.monitors();
    monitors.removeIf([](const Monitor &monitor) { return !monitor.isEnabled; });
    return monitors;
}

void MonitoringEngine::holdForSleep()
{
    m_nearSleep.start(longestNearness);
}

void MonitoringEngine::checkAllAnew()
{
    m_nearSleep.stop();
    ++m_era;
    m_checkedInThisEra.clear();
    m_services.sleeper.catchUp();
    for (const Monitor &monitor : enabledMonitors()) {
        PeriodicTask *task = m_tasks.value(monitor.id);
        if (task && task->isWaiting())
            task->endWait();
        else if (!m_checkedInThisEra.contains(monitor.id) && !isOutOfReach(monitor))
            static_cast<void>(runCheck(monitor, Occasion::scheduled));
    }
}

void MonitoringEngine::tellOfResponse(const DueNotifications &due, const Check &check,
                                      const Monitor &monitor)
{
    if (due.slow)
        m_services.notifications.notifySlow(monitor, Milliseconds(check.responseTime),
                                            *monitor.responseTimeThreshold);
    if (due.certificateDays)
        m_services.notifications.notifyCertificateExpiring(monitor, *due.certificateDays);
}

void MonitoringEngine::tellOfOutage(const DueNotifications &due, const Check &check,
                                    const Monitor &monitor)
{
    if (due.down)
        m_services.notifications.notifyDown(monitor, check.error);
    if (due.recovery)
        m_services.notifications.notifyRecovery(monitor, Milliseconds(check.responseTime));
}

void MonitoringEngine::setConsecutiveFailures(const QUuid &monitorId, qint64 count)
{
    m_consecutiveFailures.insert(monitorId, count);
    Q_EMIT consecutiveFailuresChanged();
}

} // namespace ostrel
