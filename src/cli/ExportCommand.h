#pragma once

#include "Invocation.h"
#include "Timestamp.h"

#include <QStringList>

namespace ostrel {

struct ExportOutcome
{
    int exitCode = exitDone;
    /// What failed, or what has no counterpart in the export: a line of stderr each.
    QStringList complaints = {};
};

/// Carries @p invocation out. The folder is only read. Without a path, the export goes to the open
/// file @p output. A file is written as a whole or not at all, and never replaced unasked.
[[nodiscard]] ExportOutcome runExport(const ExportInvocation &invocation, int output,
                                      const WallClock &now = systemNow);

} // namespace ostrel
