#pragma once

#include "Invocation.h"
#include "RequestRunner.h"

#include <QJsonArray>

#include <variant>

namespace ostrel {

// The commands that change monitors. They find out which monitors are meant before they change
// anything, and change all of them or none. The result says what was done, a line for each monitor,
// or why nothing was; if the change couldn't be saved, it says that, too, and fails.

[[nodiscard]] CommandResult runAdd(const AddInvocation &invocation, RequestRunner &runner);
[[nodiscard]] CommandResult runEdit(const EditInvocation &invocation, RequestRunner &runner);
[[nodiscard]] CommandResult runSwitch(const SwitchInvocation &invocation, RequestRunner &runner);

/// Makes @p changes, all of them or none. The outcome of each (see ChangeOutcome), or how the
/// command ends if they weren't made or couldn't be saved.
[[nodiscard]] std::variant<QJsonArray, CommandResult>
makeChanges(const QList<MonitorChange> &changes, RequestRunner &runner);

} // namespace ostrel
