#include "PeriodicTask.h"

#include "ContinueOn.h"
#include "Sleeper.h"

#include <utility>

namespace ostrel {

PeriodicTask::PeriodicTask(const Monitor &monitor, Duties duties, Sleeper &sleeper, QObject *parent)
    : QObject(parent)
    , m_monitor(monitor)
    , m_duties(std::move(duties))
    , m_sleeper(sleeper)
{
}

void PeriodicTask::start()
{
    check(m_monitor);
}

void PeriodicTask::cancel()
{
    m_isCancelled = true;
}

void PeriodicTask::endWait()
{
    if (std::exchange(m_isWaiting, false))
        wake();
}

void PeriodicTask::check(const Monitor &monitor)
{
    m_isWaiting = m_duties.mustWait(monitor);
    if (!m_isWaiting)
        whenFinished(m_duties.runCheck(monitor), this, [this](const QFuture<void> &) { sleep(); });
}

void PeriodicTask::sleep()
{
    if (!m_isCancelled)
        m_sleeper.sleep(m_monitor.interval, this, [this] { wake(); });
}

void PeriodicTask::wake()
{
    if (m_isCancelled)
        return;
    if (const auto monitor = m_duties.currentMonitor())
        check(*monitor);
    else
        sleep();
}

} // namespace ostrel
