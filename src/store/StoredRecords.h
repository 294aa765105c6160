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
    FileSnapshot monitorsContent;       ///< What the monitors were read from.
    FileSnapshot checksContent;         ///< The same of the histories: here their stored forms are.
    bool areMonitorsUnreadable = false; ///< There is a file, but it can't be loaded.
    bool areChecksUnreadable = false;   ///< The same of the checks'.

    [[nodiscard]] static QString monitorsPath(const QString &storageDir);
    [[nodiscard]] static QString checksPath(const QString &storageDir);
    /// Where the history stands as the disk last took it.
    [[nodiscard]] static QString flushedChecksPath(const QString &storageDir);

    /// Reads @p storageDir. A file that can't be loaded counts as empty; but a history that a power
    /// cut has left unfinished (no bytes, or zeros at the end) counts as what the disk last took of
    /// it. Any thread.
    [[nodiscard]] static StoredRecords read(const QString &storageDir);

    /// Whether nobody has changed the two files of @p storageDir since these were read from it.
    [[nodiscard]] bool areCurrent(const QString &storageDir) const;
};

} // namespace ostrel
