#pragma once

#include "HistoriesWriter.h"
#include "Monitor.h"

#include <QList>
#include <QString>

namespace ostrel {

/// What the two files of a storage folder hold.
struct StoredRecords
{
    QList<Monitor> monitors; ///< In the user's order.
    CheckHistories checks;
    FileSnapshot checksContent;         ///< Where the histories' stored forms stand.
    bool areMonitorsUnreadable = false; ///< There is a file, but it can't be loaded.
    bool areChecksUnreadable = false;   ///< The same of the checks'.

    [[nodiscard]] static QString monitorsPath(const QString &storageDir);
    [[nodiscard]] static QString checksPath(const QString &storageDir);

    /// Reads @p storageDir. A file that can't be loaded counts as empty. Any thread.
    [[nodiscard]] static StoredRecords read(const QString &storageDir);
};

} // namespace ostrel
