#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel pause`.
[[nodiscard]] Command pauseCommand();

} // namespace ostrel
