#pragma once

#include "Monitor.h"

#include <QString>

namespace ostrel {

/// A monitor in the making: what the form's fields hold, as typed.
struct MonitorDraft
{
    QString url = {};      ///< A website's address, or a port monitor's host.
    QString portText = {}; ///< Counts for port monitors only, but is stored for all.
    Seconds interval = rawValue(CheckInterval::fiveMinutes);
    HTTPMethod method = HTTPMethod::GET;
    Seconds timeout = Monitor().timeout;
    MonitorType monitorType = MonitorType::http;
    QString keyword = {}; ///< Empty for none.
    bool keywordShouldExist = true;
    QString thresholdText = {}; ///< Milliseconds; empty for none.

    bool operator==(const MonitorDraft &) const = default;
};

/// The draft that shows @p monitor. Its threshold is shown in whole milliseconds, rounded towards
/// zero.
[[nodiscard]] MonitorDraft draftOf(const Monitor &monitor);

/// Whether @p draft says enough to be checked.
[[nodiscard]] bool isValid(const MonitorDraft &draft);

/// @p monitor with all that @p draft holds. A port or threshold that is no number is none.
[[nodiscard]] Monitor withDraft(Monitor monitor, const MonitorDraft &draft);

/// The monitor that @p draft makes: named after its address, enabled, with every notification on.
[[nodiscard]] Monitor newMonitor(const MonitorDraft &draft, Timestamp createdAt);

} // namespace ostrel
