#pragma once

#include "Invocation.h"
#include "RequestRunner.h"
#include "Timestamp.h"

namespace ostrel {

/// The largest file that is imported, in bytes. The program that watches takes no larger request,
/// either.
inline constexpr qint64 maxImportSize = qint64(64) * 1024 * 1024;

/// Adds what the file of @p invocation offers: all of it or nothing. The output has a line for each
/// monitor. A dry run only reads.
[[nodiscard]] CommandResult runImport(const ImportInvocation &invocation, RequestRunner &runner,
                                      const WallClock &now = systemNow);

} // namespace ostrel
