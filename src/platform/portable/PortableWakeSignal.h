#pragma once

#include "Timestamp.h"
#include "WakeSignal.h"

#include <QTimer>

#include <chrono>

namespace ostrel {

/// Assumes a wake if a timer's tick comes far later, by the wall clock, than it was due. Setting
/// the clock forward looks the same, which does no harm.
class PortableWakeSignal final : public WakeSignal
{
    Q_OBJECT

public:
    /// A busy program's tick is late as well; only a tick that is later than this indicates a
    /// sleep.
    static constexpr std::chrono::seconds tolerance{30};
    /// Ten seconds: rare enough not to keep a computer from idling.
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
