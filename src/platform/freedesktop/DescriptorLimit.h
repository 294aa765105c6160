#pragma once

#include <QStringList>

namespace ostrel {

/// A command that runs @p command with the limit of open files that this program was started with:
/// some programs iterate over every number up to the limit, or can't use any over 1023. Returns @p
/// command itself if the limit was never raised.
[[nodiscard]] QStringList withInitialDescriptorLimit(const QStringList &command);

} // namespace ostrel
