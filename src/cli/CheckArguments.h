#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel check`.
[[nodiscard]] Command checkCommand();

} // namespace ostrel
