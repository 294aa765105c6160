#pragma once

#include "CheckHistory.h"
#include "FileSnapshot.h"

#include <optional>

namespace ostrel {

/// In bytes: some monitors' full histories; little enough for a processor's cache.
inline constexpr std::size_t historiesPartSize = 1 << 20;

/// The histories in @p content, decoded as by CheckMapDecoder; nullopt if it can't be read, is
/// malformed or is larger than maxStoredFileSize. A file that the program itself has written is
/// read in parts of @p partSize bytes, so that it takes little memory, however long it is; a part
/// grows until a history ends in it.
[[nodiscard]] std::optional<CheckHistories> readHistories(const FileSnapshot &content,
                                                          std::size_t partSize = historiesPartSize);

} // namespace ostrel
