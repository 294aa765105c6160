#pragma once

#include "Command.h"

namespace ostrel {

/// `ostrel list`.
[[nodiscard]] Command listCommand();

} // namespace ostrel
