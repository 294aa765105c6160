#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

namespace ostrel {

/// A monitor that a file offers.
struct ImportedMonitor
{
    Monitor monitor;
    /// Whether the file says which monitor it is; otherwise its id is new, and only its address
    /// tells whether it is watched already.
    bool hasIdentity = false;
    std::vector<Check> checks{}; ///< Its history, oldest first.
};

/// What a file offers.
struct ImportContent
{
    QList<ImportedMonitor> monitors = {};
    QStringList notes = {}; ///< What has no counterpart here, a line each.
    /// Why the file is unusable, a line each. If there is one, nothing of the file may be imported.
    QStringList problems = {};
};

} // namespace ostrel
