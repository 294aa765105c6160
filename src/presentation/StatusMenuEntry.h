#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QString>

#include <optional>

namespace ostrel {

/// One monitor in the status bar's menu.
struct StatusMenuEntry
{
    QString symbol = {};
    QString name = {};         ///< On one line.
    QString trailingText = {}; ///< May be empty.

    bool operator==(const StatusMenuEntry &) const = default;
};

[[nodiscard]] StatusMenuEntry statusMenuEntry(const Monitor &monitor, MonitorStatus status,
                                              const std::optional<Check> &latestCheck);

} // namespace ostrel
