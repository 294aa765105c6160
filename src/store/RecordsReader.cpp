#include "RecordsReader.h"

namespace ostrel {

RecordsReader::RecordsReader(const QString &storageDir)
    : m_storageDir(storageDir)
    // Deferred if no thread can be created.
    , m_records(
          std::async(std::launch::async | std::launch::deferred, &StoredRecords::read, storageDir))
{
}

StoredRecords RecordsReader::take()
{
    StoredRecords records = m_records.get();
    return records.areCurrent(m_storageDir) ? std::move(records)
                                            : StoredRecords::read(m_storageDir);
}

} // namespace ostrel
