#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel export`.
[[nodiscard]] Command exportCommand();

} // namespace ostrel
