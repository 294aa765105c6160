#pragma once

#include "Invocation.h"

#include <QByteArray>

#include <optional>

namespace ostrel {

/// openMetrics() of the folder, which is only read; nullopt if the monitors can't be read. If the
/// folder or the file doesn't exist, there are no monitors.
[[nodiscard]] std::optional<QByteArray> readMetrics(const MetricsInvocation &invocation);

} // namespace ostrel
