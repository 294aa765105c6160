#pragma once

#include "Timestamp.h"
#include "WakeSignal.h"

#include <QTimer>

#include <chrono>

namespace ostrel {

/// Takes it for a wake when a timer's tick comes far later, by the wall clock, than it was asked
/// for. A clock that is set forward looks the same, which does no harm.
class PortableWakeSignal final : public WakeSignal
{
    Q_OBJECT

public:
    /// A busy program's tick is late as well; a tick that is later than this was slept through.
    static constexpr std::chrono::seconds tolerance{30};
    /// Ten seconds: rare enough not to keep a computer from resting.
    static constexpr std::chrono::milliseconds defaultInterval{10'000};

    explicit PortableWakeSignal(WallClock clock = systemNow,
                                std::chrono::milliseconds interval = defaultInterval,
                                QObject *parent = nullptr);

private:
    void tick();

    WallClock m_clock;
    std::chrono::milliseconds m_interval;
    Timestamp m_lastTick;
    QTimer m_timer;
};

} // namespace ostrel
