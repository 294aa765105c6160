#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel edit`.
[[nodiscard]] Command editCommand();

} // namespace ostrel
