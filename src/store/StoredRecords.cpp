#include "StoredRecords.h"

#include "AtomicFile.h"
#include "HistoriesReader.h"
#include "MonitorJson.h"

#include <exception>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// The result of @p read; nullopt if it throws, for example if there isn't enough memory.
template<typename Read>
std::invoke_result_t<Read> readOrNothing(Read read)
{
    try {
        return read();
    } catch (const std::exception &) {
        return std::nullopt;
    }
}

void readMonitors(const AtomicFile &file, StoredRecords &records)
{
    const auto monitors = readOrNothing([&] {
        const auto json = file.read(&records.monitorsContent);
        return json ? decodeMonitors(*json) : std::nullopt;
    });
    records.monitors = monitors.value_or(QList<Monitor>());
    records.areMonitorsUnreadable = !monitors && file.exists();
}

std::optional<CheckHistories> readQuietly(const FileSnapshot &content)
{
    return readOrNothing([&] { return readHistories(content); });
}

/// Whether the file got its name before its content reached the disk. A power cut can leave it so
/// on file systems that don't keep the order of the two.
bool isUnfinished(const FileSnapshot &content)
{
    char last = '\0';
    if (content.size() > 0 && !content.read(content.size() - 1, {&last, 1}))
        return false;
    return content.isOfAFile() && last == '\0';
}

void readChecks(const AtomicFile &file, const AtomicFile &flushed, StoredRecords &records)
{
    records.checksContent = file.snapshot();
    auto histories = readQuietly(records.checksContent);
    records.areChecksUnreadable = !histories && file.exists();
    if (!histories && isUnfinished(records.checksContent)) {
        records.checksContent = flushed.snapshot();
        histories = readQuietly(records.checksContent);
    }
    records.checks = std::move(histories).value_or(CheckHistories());
}

} // namespace

QString StoredRecords::monitorsPath(const QString &storageDir)
{
    return storageDir + u"/monitors.json"_s;
}

QString StoredRecords::checksPath(const QString &storageDir)
{
    return storageDir + u"/checks.json"_s;
}

QString StoredRecords::flushedChecksPath(const QString &storageDir)
{
    return checksPath(storageDir) + u".flushed"_s;
}

StoredRecords StoredRecords::read(const QString &storageDir)
{
    StoredRecords records;
    readMonitors(AtomicFile(monitorsPath(storageDir)), records);
    readChecks(AtomicFile(checksPath(storageDir)), AtomicFile(flushedChecksPath(storageDir)),
               records);
    return records;
}

bool StoredRecords::areCurrent(const QString &storageDir) const
{
    return AtomicFile(monitorsPath(storageDir)).holds(monitorsContent) &&
           AtomicFile(checksPath(storageDir)).holds(checksContent);
}

} // namespace ostrel
