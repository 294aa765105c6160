#pragma once

#include "Monitor.h"

#include <QString>

namespace ostrel {

/// A monitor that is being edited: the content of the form's fields, as typed.
struct MonitorDraft
{
    QString url = {};      ///< A website's address, or a port monitor's host.
    QString portText = {}; ///< Only used for port monitors, but stored for all.
    Seconds interval = rawValue(CheckInterval::fiveMinutes);
    HTTPMethod method = HTTPMethod::GET;
    Seconds timeout = Monitor().timeout;
    MonitorType monitorType = MonitorType::http;
    QString keyword = {}; ///< Empty if there is none.
    bool keywordShouldExist = true;
    QString thresholdText = {}; ///< Milliseconds; empty if there is none.

    bool operator==(const MonitorDraft &) const = default;
};

/// The draft that shows @p monitor. Its threshold is shown in whole milliseconds, rounded toward
/// zero.
[[nodiscard]] MonitorDraft draftOf(const Monitor &monitor);

/// Whether @p draft has enough data for checks.
[[nodiscard]] bool isValid(const MonitorDraft &draft);

/// @p monitor with all values of @p draft. A port or threshold that isn't a number becomes absent.
[[nodiscard]] Monitor withDraft(Monitor monitor, const MonitorDraft &draft);

/// Creates the monitor for @p draft: named after its address, enabled, with every notification on.
[[nodiscard]] Monitor newMonitor(const MonitorDraft &draft, Timestamp createdAt);

} // namespace ostrel
