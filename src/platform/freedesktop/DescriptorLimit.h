#pragma once

#include <QStringList>

namespace ostrel {

/// What starts @p command with the limit of open files that this program was started with: some
/// programs look at every number up to the limit, or can use none over 1023. The command itself
/// where the limit has never been raised.
[[nodiscard]] QStringList withInitialDescriptorLimit(const QStringList &command);

} // namespace ostrel
