#pragma once

#include "MonitorSummary.h"
#include "Tone.h"

#include <QString>

namespace ostrel {

/// One monitor on the dashboard.
struct MonitorCard
{
    QString responseTimeText = {}; ///< Empty unless the latest check was up.
    QString uptimeText = {};
    Tone uptimeTone = Tone::Up;

    bool operator==(const MonitorCard &) const = default;
};

[[nodiscard]] MonitorCard monitorCard(const MonitorSummary &summary);

} // namespace ostrel
