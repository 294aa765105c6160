#pragma once

#include <QString>

namespace ostrel {

/// The folder @p path as users read it: "~" for the home folder @p home, a "/" at the end. Both
/// paths are absolute; @p home is empty if there is none.
[[nodiscard]] QString folderText(const QString &path, const QString &home);

} // namespace ostrel
