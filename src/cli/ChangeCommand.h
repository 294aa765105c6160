#pragma once

#include "Invocation.h"

namespace ostrel {

class RequestRunner;
struct CommandResult;

// The commands that change monitors. They find out which monitors are meant before they change
// anything, and change all of them or none. The result says what was done, a line for each monitor,
// or why nothing was; if the change couldn't be saved, it says that, too, and fails.

[[nodiscard]] CommandResult runAdd(const AddInvocation &invocation, RequestRunner &runner);
[[nodiscard]] CommandResult runEdit(const EditInvocation &invocation, RequestRunner &runner);
[[nodiscard]] CommandResult runSwitch(const SwitchInvocation &invocation, RequestRunner &runner);

} // namespace ostrel
