#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel import`.
[[nodiscard]] Command importCommand();

} // namespace ostrel
