#include "ToneRules.h"

namespace ostrel {

using namespace std::chrono_literals;

Tone statusTone(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return Tone::Up;
    case MonitorStatus::down:
        return Tone::Down;
    case MonitorStatus::paused:
    case MonitorStatus::pending:
        return Tone::Muted;
    }
    Q_UNREACHABLE();
}

Tone responseTimeTone(Milliseconds time)
{
    if (time < 300ms)
        return Tone::Up;
    return time < 1000ms ? Tone::Warning : Tone::Down;
}

Tone averageTone(Milliseconds average)
{
    return average <= 0ms ? Tone::Secondary : responseTimeTone(average);
}

Tone uptimeTone(double share)
{
    if (share >= 0.99)
        return Tone::Up;
    return share >= 0.95 ? Tone::Warning : Tone::Down;
}

Tone percentageTone(double percentage)
{
    if (percentage >= 99)
        return Tone::Up;
    return percentage >= 95 ? Tone::Warning : Tone::Down;
}

Tone certificateTone(qint64 daysLeft)
{
    if (daysLeft < 8)
        return Tone::Down;
    return daysLeft <= 30 ? Tone::Warning : Tone::Up;
}

} // namespace ostrel
