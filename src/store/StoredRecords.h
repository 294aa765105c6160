#pragma once

#include "HistoriesWriter.h"
#include "Monitor.h"

#include <QList>
#include <QString>

namespace ostrel {

/// The content of the two files of a storage folder.
struct StoredRecords
{
    QList<Monitor> monitors; ///< In the user's order.
    CheckHistories checks;
    FileSnapshot monitorsContent;       ///< The file that the monitors were read from.
    FileSnapshot checksContent;         ///< The same for the histories, with their stored forms.
    bool areMonitorsUnreadable = false; ///< There is a file, but it can't be loaded.
    bool areChecksUnreadable = false;   ///< The same for the checks' file.

    [[nodiscard]] static QString monitorsPath(const QString &storageDir);
    [[nodiscard]] static QString checksPath(const QString &storageDir);
    /// The path of the last flushed copy of the history.
    [[nodiscard]] static QString flushedChecksPath(const QString &storageDir);

    /// Reads @p storageDir. A file that can't be loaded counts as empty; but if a power cut has
    /// left the history unfinished (empty, cut off at the end of a sector of 512 bytes, or with
    /// zeros in place of sectors or at its end), its last flushed copy is read instead. Any thread.
    [[nodiscard]] static StoredRecords read(const QString &storageDir);

    /// Whether the two files of @p storageDir are unchanged since these records were read from
    /// them.
    [[nodiscard]] bool areCurrent(const QString &storageDir) const;
};

} // namespace ostrel
