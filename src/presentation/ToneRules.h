#pragma once

#include "Monitor.h"
#include "Tone.h"

namespace ostrel {

[[nodiscard]] Tone statusTone(MonitorStatus status);

/// Up below 300 ms, warning below 1000 ms, down from there.
[[nodiscard]] Tone responseTimeTone(Milliseconds time);
/// Like responseTimeTone(), but secondary for 0 or less, which means "none".
[[nodiscard]] Tone averageTone(Milliseconds average);

/// For a share in 0…1: up from 0.99, warning from 0.95, down below.
[[nodiscard]] Tone uptimeTone(double share);
/// The same for a percentage in 0…100.
[[nodiscard]] Tone percentageTone(double percentage);

/// For the whole days that a certificate has left: down below 8, warning up to 30, up from 31.
[[nodiscard]] Tone certificateTone(qint64 daysLeft);

} // namespace ostrel
