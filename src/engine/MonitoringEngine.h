#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QFuture>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <optional>

namespace ostrel {

class MonitorCheck;
class MonitorStore;
class NetworkPresence;
class NotificationManager;
class PeriodicTask;
class Sleeper;
class WakeSignal;
struct DueNotifications;

/// What the engine uses. All of it must outlive the engine.
struct EngineServices
{
    MonitorStore &store;
    MonitorCheck &httpCheck;
    MonitorCheck &portCheck;
    NotificationManager &notifications;
    WakeSignal &wakeSignal;
    NetworkPresence &networkPresence;
    Sleeper &sleeper;
};

/// The only scheduler: keeps a periodic task for every enabled monitor, passes every result to the
/// store, and sends the notifications that are due. Main thread only.
///
/// Failures that aren't the site's fault are neither recorded nor notified. While the computer has
/// no network, scheduled checks of other computers wait. When it has one again, and after a sleep,
/// running checks are dropped, and every enabled monitor is checked once; a check that fell due
/// meanwhile counts as that one.
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

    /// Starts watching every enabled monitor, in the store's order; does nothing if already
    /// running.
    void start();
    /// Restarts watching @p monitor, with a check at once; a disabled one is only stopped.
    void startMonitoring(const Monitor &monitor);
    /// Stops watching. A check that is running still ends, and is recorded.
    void stopMonitoring(const Monitor &monitor);
    /// Checks @p monitor at once, enabled or not, independently of its periodic task. Finishes once
    /// the check has ended and is recorded, or is dropped.
    QFuture<void> checkNow(const Monitor &monitor);

    /// Called at the end of every check: records it, counts failures, and sends the notifications
    /// that are due for it. Those about the one response are sent before it is recorded, those
    /// about the monitor's going down or recovering after that.
    void handleResult(const Check &check, const Monitor &monitor);

Q_SIGNALS:
    void isRunningChanged();
    void tasksChanged();
    void consecutiveFailuresChanged();

private:
    enum class Occasion { scheduled, requested };

    /// The parameters of a running check.
    struct Errand
    {
        Monitor monitor;
        Occasion occasion;
        quint64 era;
    };

    /// Finishes once the check has ended and is recorded, or is dropped, whatever was thrown.
    [[nodiscard]] QFuture<void> runCheck(const Monitor &monitor, Occasion occasion);
    [[nodiscard]] QFuture<Check> begin(const Monitor &monitor);
    void end(const QFuture<Check> &check, const Errand &errand);
    [[nodiscard]] bool isNoFaultOfTheSite(const Check &check, const Errand &errand) const;
    /// Whether a scheduled check of @p monitor would tell more about this computer than about the
    /// site.
    [[nodiscard]] bool mustWait(const Monitor &monitor) const;
    [[nodiscard]] bool isOutOfReach(const Monitor &monitor) const;
    [[nodiscard]] std::optional<Monitor> enabledMonitor(const QUuid &id) const;
    [[nodiscard]] QList<Monitor> enabledMonitors() const;
    void holdForSleep();
    /// Drops running checks, and checks every enabled monitor once.
    void checkAllAnew();
    void tellOfResponse(const DueNotifications &due, const Check &check, const Monitor &monitor);
    void tellOfOutage(const DueNotifications &due, const Check &check, const Monitor &monitor);
    void setConsecutiveFailures(const QUuid &monitorId, qint64 count);

    EngineServices m_services;
    QHash<QUuid, PeriodicTask *> m_tasks;
    QHash<QUuid, qint64> m_consecutiveFailures;
    quint64 m_era = 0;              ///< A check that began in an earlier era is dropped.
    QSet<QUuid> m_checkedInThisEra; ///< The monitors for which a check has begun.
    QTimer m_nearSleep{this};       ///< Runs from willSleep() until the wake.
    bool m_isRunning = false;
};

} // namespace ostrel
