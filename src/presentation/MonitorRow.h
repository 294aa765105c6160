#pragma once

#include "Monitor.h"
#include "MonitorSummary.h"
#include "Tone.h"

#include <QString>

namespace ostrel {

/// One monitor in the sidebar.
struct MonitorRow
{
    QString name = {};
    QString address = {};
    MonitorStatus status = MonitorStatus::pending;
    QString resultText = {}; ///< "DOWN" or a response time; empty while pending.
    Tone resultTone = Tone::Muted;
    QString uptimeText = {};
    QString spokenText = {}; ///< The row as one sentence.

    bool operator==(const MonitorRow &) const = default;
};

[[nodiscard]] MonitorRow monitorRow(const Monitor &monitor, const MonitorSummary &summary);

} // namespace ostrel
