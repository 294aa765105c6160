#include "StoredRecords.h"

#include "AtomicFile.h"
#include "CheckJson.h"
#include "MonitorJson.h"

namespace ostrel {

namespace {

/// Builds the histories while their file is read.
class HistoryLoader : public CheckMapVisitor
{
public:
    void openHistory(const QUuid &monitorId) override
    {
        m_open = &m_histories.insert_or_assign(monitorId, CheckHistory(monitorId)).first->second;
    }
    void takeCheck(Check &&check, std::optional<TextRange> compact) override
    {
        if (compact)
            m_open->append(std::move(check), *compact);
        else
            m_open->append(check);
    }

    [[nodiscard]] CheckHistories take() { return std::move(m_histories); }

private:
    CheckHistories m_histories;
    CheckHistory *m_open = nullptr;
};

void readMonitors(const AtomicFile &file, StoredRecords &records)
{
    const auto json = file.read(&records.monitorsContent);
    const auto monitors = json ? decodeMonitors(*json) : std::nullopt;
    records.monitors = monitors.value_or(QList<Monitor>());
    records.areMonitorsUnreadable = !monitors && file.exists();
}

void readChecks(const AtomicFile &file, StoredRecords &records)
{
    HistoryLoader loader;
    auto json = file.read(&records.checksContent);
    const bool isLoaded = json && decodeCheckMap(*std::move(json), loader);
    if (isLoaded)
        records.checks = loader.take();
    records.areChecksUnreadable = !isLoaded && file.exists();
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
