#include "PeriodicTask.h"

#include "ContinueOn.h"
#include "Sleeper.h"

#include <utility>

namespace ostrel {

PeriodicTask::PeriodicTask(const Monitor &monitor, RunCheck runCheck, CurrentMonitor currentMonitor,
                           Sleeper &sleeper, QObject *parent)
    : QObject(parent)
    , m_monitor(monitor)
    , m_runCheck(std::move(runCheck))
    , m_currentMonitor(std::move(currentMonitor))
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

void PeriodicTask::check(const Monitor &monitor)
{
    continueOn(m_runCheck(monitor), this, [this] { sleep(); });
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
    if (const auto monitor = m_currentMonitor())
        check(*monitor);
    else
        sleep();
}

} // namespace ostrel
