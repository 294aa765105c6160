#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel add`.
[[nodiscard]] Command addCommand();

} // namespace ostrel
