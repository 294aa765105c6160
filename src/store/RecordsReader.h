#pragma once

#include "StoredRecords.h"

#include <future>

namespace ostrel {

/// Reads a storage folder on a thread of its own, from its making on, so that nobody waits for the
/// disk who has other things to do.
class RecordsReader
{
public:
    explicit RecordsReader(const QString &storageDir);

    [[nodiscard]] const QString &storageDir() const { return m_storageDir; }

    /// Waits for what the folder holds, and gives it. It is that of now: what another program has
    /// changed since it was read is read again. To be called once.
    [[nodiscard]] StoredRecords take();

private:
    QString m_storageDir;
    std::future<StoredRecords> m_records;
};

} // namespace ostrel
