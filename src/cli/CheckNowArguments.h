#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel check-now`.
[[nodiscard]] Command checkNowCommand();

} // namespace ostrel
