#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel metrics`.
[[nodiscard]] Command metricsCommand();

} // namespace ostrel
