#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QFuture>
#include <QHash>
#include <QObject>

namespace ostrel {

class MonitorCheck;
class MonitorStore;
class NotificationManager;
class PeriodicTask;
class Sleeper;
class WakeSignal;

/// What the engine works with. All of it outlives the engine.
struct EngineServices
{
    MonitorStore &store;
    MonitorCheck &httpCheck;
    MonitorCheck &portCheck;
    NotificationManager &notifications;
    WakeSignal &wakeSignal;
    Sleeper &sleeper;
};

/// The one scheduler: keeps a periodic task for every enabled monitor, hands every result to the
/// store, and turns runs of failures and recoveries into notifications. Main thread only.
class MonitoringEngine : public QObject
{
    Q_OBJECT

public:
    explicit MonitoringEngine(const EngineServices &services, QObject *parent = nullptr);
    ~MonitoringEngine() override;

    /// The monitors that are being watched.
    [[nodiscard]] const QHash<QUuid, PeriodicTask *> &tasks() const { return m_tasks; }
    /// Failed checks in a row since the last success, by monitor; a missing entry counts as 0.
    /// Outlives the monitor's task.
    [[nodiscard]] const QHash<QUuid, qint64> &consecutiveFailures() const
    {
        return m_consecutiveFailures;
    }
    [[nodiscard]] bool isRunning() const { return m_isRunning; }

    /// Begins to watch every enabled monitor, in the store's order; does nothing the second time.
    void start();
    /// Begins to watch @p monitor anew, with a check at once; a disabled one is only stopped.
    void startMonitoring(const Monitor &monitor);
    /// Stops watching. A check under way still ends, and is recorded.
    void stopMonitoring(const Monitor &monitor);
    /// Checks @p monitor at once, enabled or not, beside its periodic task.
    void checkNow(const Monitor &monitor);

    /// Where every check ends: records it, counts failures, notifies on the second failure in a
    /// row and on the first success after that.
    void handleResult(const Check &check, const Monitor &monitor);

Q_SIGNALS:
    void isRunningChanged();
    void tasksChanged();
    void consecutiveFailuresChanged();

private:
    [[nodiscard]] QFuture<void> runCheck(const Monitor &monitor);
    [[nodiscard]] std::optional<Monitor> enabledMonitor(const QUuid &id) const;
    void checkAfterWake();
    void handleFailure(const Check &check, const Monitor &monitor);
    void handleSuccess(const Check &check, const Monitor &monitor);
    void setConsecutiveFailures(const QUuid &monitorId, qint64 count);

    EngineServices m_services;
    QHash<QUuid, PeriodicTask *> m_tasks;
    QHash<QUuid, qint64> m_consecutiveFailures;
    bool m_isRunning = false;
};

} // namespace ostrel
