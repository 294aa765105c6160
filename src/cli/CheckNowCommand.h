#pragma once

#include "Invocation.h"

namespace ostrel {

class Network;
class RequestRunner;
struct CommandResult;

/// Has the program that watches check the monitors, or, if none does, checks them through
/// @p network and records the results. Waits for all of them.
[[nodiscard]] CommandResult runCheckNow(const CheckNowInvocation &invocation, RequestRunner &runner,
                                        Network &network);

} // namespace ostrel
