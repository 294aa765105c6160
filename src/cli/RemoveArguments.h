#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel remove`.
[[nodiscard]] Command removeCommand();

} // namespace ostrel
