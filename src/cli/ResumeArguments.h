#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel resume`.
[[nodiscard]] Command resumeCommand();

} // namespace ostrel
