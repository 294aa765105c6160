#pragma once

#include "StoredRecords.h"

#include <future>

namespace ostrel {

/// Reads a storage folder on a thread of its own, which starts at construction, so that the caller
/// can do other things meanwhile.
class RecordsReader
{
public:
    explicit RecordsReader(const QString &storageDir);

    [[nodiscard]] const QString &storageDir() const { return m_storageDir; }

    /// Waits for the folder's content and returns it. It is current: if another program has changed
    /// it since it was read, it is read again. Must be called only once.
    [[nodiscard]] StoredRecords take();

private:
    QString m_storageDir;
    std::future<StoredRecords> m_records;
};

} // namespace ostrel
