#include "StoredRecords.h"

#include "AtomicFile.h"
#include "HistoriesReader.h"
#include "MonitorJson.h"

namespace ostrel {

namespace {

void readMonitors(const AtomicFile &file, StoredRecords &records)
{
    const auto json = file.read(&records.monitorsContent);
    const auto monitors = json ? decodeMonitors(*json) : std::nullopt;
    records.monitors = monitors.value_or(QList<Monitor>());
    records.areMonitorsUnreadable = !monitors && file.exists();
}

void readChecks(const AtomicFile &file, StoredRecords &records)
{
    records.checksContent = file.snapshot();
    auto histories = readHistories(records.checksContent);
    records.areChecksUnreadable = !histories && file.exists();
    records.checks = std::move(histories).value_or(CheckHistories());
}

} // namespace

QString StoredRecords::monitorsPath(const QString &storageDir)
{
    return storageDir + QStringLiteral("/monitors.json");
}

QString StoredRecords::checksPath(const QString &storageDir)
{
    return storageDir + QStringLiteral("/checks.json");
}

StoredRecords StoredRecords::read(const QString &storageDir)
{
    StoredRecords records;
    readMonitors(AtomicFile(monitorsPath(storageDir)), records);
    readChecks(AtomicFile(checksPath(storageDir)), records);
    return records;
}

bool StoredRecords::areCurrent(const QString &storageDir) const
{
    return AtomicFile(monitorsPath(storageDir)).holds(monitorsContent) &&
           AtomicFile(checksPath(storageDir)).holds(checksContent);
}

} // namespace ostrel
