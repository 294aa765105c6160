#pragma once

#include "CheckHistory.h"
#include "Monitor.h"

#include <QList>
#include <QString>

#include <map>

namespace ostrel {

/// What the two files of a storage folder hold.
struct StoredRecords
{
    QList<Monitor> monitors;              ///< In the user's order.
    std::map<QUuid, CheckHistory> checks; ///< By the monitor's id.
    bool areMonitorsUnreadable = false;   ///< There is a file, but it can't be loaded.
    bool areChecksUnreadable = false;     ///< The same of the checks'.

    [[nodiscard]] static QString monitorsPath(const QString &storageDir);
    [[nodiscard]] static QString checksPath(const QString &storageDir);

    /// Reads @p storageDir. A file that can't be loaded counts as empty. Any thread.
    [[nodiscard]] static StoredRecords read(const QString &storageDir);
};

} // namespace ostrel
