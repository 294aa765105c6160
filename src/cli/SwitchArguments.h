#pragma once

#include "Invocation.h"

#include <QStringList>

namespace ostrel {

/// Parses the arguments of the commands that need no more than monitors.
[[nodiscard]] Invocation parseSwitch(MonitorChange::Kind kind, const QStringList &arguments);

} // namespace ostrel
