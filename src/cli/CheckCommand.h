#pragma once

#include "Check.h"
#include "Invocation.h"

#include <QByteArray>

namespace ostrel {

class Network;

/// Runs the one check of @p invocation through @p network, on an event loop of its own. Touches no
/// file and sends no notification.
[[nodiscard]] Check runCheckOnce(const CheckInvocation &invocation, Network &network);

/// The command's output for @p check: a few human-readable lines, or the JSON object that the
/// history file would hold. UTF-8, with a newline at the end.
[[nodiscard]] QByteArray describeCheck(const CheckInvocation &invocation, const Check &check);

/// 0 up, 1 down.
[[nodiscard]] int exitCodeOf(const Check &check);

} // namespace ostrel
