#pragma once

#include "CheckHistory.h"
#include "FileSnapshot.h"

#include <optional>

namespace ostrel {

/// The histories that @p content holds, on the terms of CheckMapDecoder; nothing if it can't be
/// read or is malformed. What the program itself has written is read in parts of a megabyte, so
/// that it takes little memory, however long it is.
[[nodiscard]] std::optional<CheckHistories> readHistories(const FileSnapshot &content);

} // namespace ostrel
