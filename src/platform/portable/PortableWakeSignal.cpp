#include "PortableWakeSignal.h"

#include <utility>

namespace ostrel {

PortableWakeSignal::PortableWakeSignal(WallClock clock, std::chrono::milliseconds interval,
                                       QObject *parent)
    : WakeSignal(parent)
    , m_clock(std::move(clock))
    , m_interval(interval)
    , m_lastTick(m_clock())
{
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, &PortableWakeSignal::tick);
    m_timer.start(interval);
}

void PortableWakeSignal::tick()
{
    const Timestamp now = m_clock();
    const auto lateness = now - (m_lastTick + m_interval);
    m_lastTick = now;
    if (lateness > tolerance)
        Q_EMIT didWake();
}

} // namespace ostrel
