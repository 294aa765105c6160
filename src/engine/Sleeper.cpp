#include "Sleeper.h"

#include <algorithm>
#include <utility>

namespace ostrel {

namespace {

using namespace std::chrono;

/// 200 years: longer than anyone waits, and its end doesn't overflow.
constexpr Seconds longestSleep{200.0 * 366 * 24 * 3600};

/// The event loop's clock stops while the computer sleeps. If no wake is reported, the end of a
/// wait is noticed at most this late.
constexpr milliseconds longestTimer = minutes(1);

} // namespace

TimerSleeper::TimerSleeper(ContinuousClock clock, QObject *parent)
    : QObject(parent)
    , m_clock(std::move(clock))
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &TimerSleeper::catchUp);
}

void TimerSleeper::sleep(Seconds duration, QObject *context, std::function<void()> wake)
{
    const auto bounded = std::clamp(duration, shortestSleep, longestSleep);
    m_sleeps.emplace(m_clock() + ceil<nanoseconds>(bounded), Sleep{context, std::move(wake)});
    setTimer();
}

void TimerSleeper::catchUp()
{
    const ContinuousTime now = m_clock();
    while (!m_sleeps.empty() && m_sleeps.begin()->first <= now) {
        const Sleep ended = std::move(m_sleeps.extract(m_sleeps.begin()).mapped());
        if (ended.context)
            ended.wake();
    }
    setTimer();
}

void TimerSleeper::setTimer()
{
    if (m_sleeps.empty()) {
        m_timer.stop();
        return;
    }
    const auto left = ceil<milliseconds>(m_sleeps.begin()->first - m_clock());
    m_timer.start(std::clamp(left, milliseconds(0), longestTimer));
}

} // namespace ostrel
