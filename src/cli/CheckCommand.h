#pragma once

#include "Check.h"
#include "CommandLine.h"

#include <QByteArray>

namespace ostrel {

class Network;

/// Makes the one check that @p invocation asks for by @p network, on an event loop of its own.
/// Touches no file and notifies nobody.
[[nodiscard]] Check runCheckOnce(const CheckInvocation &invocation, Network &network);

/// @p check as the command prints it: for people a few lines, else the one object that the history
/// file would hold. UTF-8, with a newline at the end.
[[nodiscard]] QByteArray describeCheck(const CheckInvocation &invocation, const Check &check);

/// 0 up, 1 down.
[[nodiscard]] int exitCodeOf(const Check &check);

} // namespace ostrel
