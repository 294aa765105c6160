#pragma once

#include "Invocation.h"

#include <QStringList>

namespace ostrel {

/// Parses the arguments of a start without a command; the first is the program's name.
[[nodiscard]] Invocation parseStart(const QStringList &arguments);

} // namespace ostrel
