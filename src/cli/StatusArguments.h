#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel status`.
[[nodiscard]] Command statusCommand();

} // namespace ostrel
