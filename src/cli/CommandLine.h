#pragma once

#include "Command.h"

#include <QList>
#include <QStringList>

namespace ostrel {

/// All commands, in the order in which the help lists them.
[[nodiscard]] const QList<Command> &allCommands();

/// Parses @p arguments, as main() gets them, with the program's name first. A single unknown
/// argument or unusable value makes the whole line unusable.
[[nodiscard]] Invocation parseCommandLine(const QStringList &arguments);

} // namespace ostrel
