#pragma once

#include "Check.h"
#include "Invocation.h"

#include <QByteArray>
#include <QList>

#include <vector>

namespace ostrel {

class Network;

/// Runs the one check of @p invocation through @p network, on an event loop of its own. Touches no
/// file and sends no notification.
[[nodiscard]] Check runCheckOnce(const CheckInvocation &invocation, Network &network);

/// Runs one check of each of @p monitors, in their order but all at once, in the same way.
[[nodiscard]] std::vector<Check> runChecks(const QList<Monitor> &monitors, Network &network);

/// The command's output for @p check: a few human-readable lines, or the JSON object that the
/// history file would hold. UTF-8, with a newline at the end.
[[nodiscard]] QByteArray describeCheck(const Monitor &monitor, const Check &check,
                                       OutputFormat format);

/// 0 up, 1 down.
[[nodiscard]] int exitCodeOf(const Check &check);

} // namespace ostrel
