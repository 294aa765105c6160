#pragma once

#include "Monitor.h"
#include "MonitorState.h"
#include "Tone.h"

#include <QString>

namespace ostrel {

/// One monitor on the dashboard.
struct MonitorCard
{
    QString name = {};
    Tone statusTone = Tone::Muted;
    QString responseTimeText = {}; ///< Empty unless the latest check was up.
    QString uptimeText = {};
    Tone uptimeTone = Tone::Up;

    bool operator==(const MonitorCard &) const = default;
};

[[nodiscard]] MonitorCard monitorCard(const Monitor &monitor, const MonitorState &state);

} // namespace ostrel
