#include "MonitorCommands.h"

#include "ContinueOn.h"
#include "MonitorStore.h"
#include "MonitoringEngine.h"

namespace ostrel {

MonitorCommands::MonitorCommands(MonitorStore &store, MonitoringEngine &engine, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_engine(&engine)
{
}

MonitorCommands::MonitorCommands(MonitorStore &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_engine(nullptr)
{
}

std::variant<QList<ChangeOutcome>, Refusal>
MonitorCommands::apply(const QList<MonitorChange> &changes)
{
    const auto planned = planChanges(m_store.monitors(), changes);
    if (const auto *refusal = std::get_if<Refusal>(&planned))
        return *refusal;
    const auto &plan = std::get<QList<PlannedChange>>(planned);
    m_store.changeTogether([&] {
        for (const PlannedChange &each : plan)
            carryOut(each);
    });
    QList<ChangeOutcome> outcomes;
    for (const PlannedChange &each : plan)
        outcomes += each.outcome;
    return outcomes;
}

void MonitorCommands::carryOut(const PlannedChange &planned)
{
    if (planned.outcome == ChangeOutcome::unchanged)
        return;
    switch (planned.change.kind) {
    case MonitorChange::Kind::create:
        return createWith(planned.change.checks, planned.monitor);
    case MonitorChange::Kind::update:
        return update(planned.monitor);
    case MonitorChange::Kind::remove:
        return remove(planned.change.id);
    case MonitorChange::Kind::pause:
        return pause(planned.change.id);
    case MonitorChange::Kind::resume:
        return resume(planned.change.id);
    }
}

void MonitorCommands::create(const Monitor &monitor)
{
    createWith({}, monitor);
}

void MonitorCommands::createWith(const std::vector<Check> &history, const Monitor &monitor)
{
    m_store.addMonitor(monitor, history);
    watch(monitor);
}

void MonitorCommands::update(const Monitor &monitor)
{
    m_store.updateMonitor(monitor);
    watch(monitor);
}

void MonitorCommands::pause(const QUuid &monitorId)
{
    auto monitor = m_store.monitor(monitorId);
    if (!monitor || !monitor->isEnabled)
        return;
    monitor->isEnabled = false;
    m_store.updateMonitor(*monitor);
    stopWatching(*monitor);
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
    stopWatching(*monitor);
    m_store.deleteMonitor(monitorId);
}

QFuture<void> MonitorCommands::checkNow(const QUuid &monitorId)
{
    const auto running = m_checking.constFind(monitorId);
    if (running != m_checking.constEnd())
        return *running;
    const auto monitor = m_store.monitor(monitorId);
    if (!monitor || !m_engine)
        return QtFuture::makeReadyFuture();
    // Entered first, so that a listener to the signal can't begin another.
    m_checking.insert(monitorId, QFuture<void>());
    Q_EMIT checkingChanged(monitorId, true);
    QFuture<void> check = m_engine->checkNow(*monitor);
    m_checking.insert(monitorId, check);
    whenFinished(check, this, [this, monitorId](const QFuture<void> &) {
        m_checking.remove(monitorId);
        Q_EMIT checkingChanged(monitorId, false);
    });
    return check;
}

void MonitorCommands::watch(const Monitor &monitor)
{
    if (m_engine)
        m_engine->startMonitoring(monitor);
}

void MonitorCommands::stopWatching(const Monitor &monitor)
{
    if (m_engine)
        m_engine->stopMonitoring(monitor);
}

} // namespace ostrel
