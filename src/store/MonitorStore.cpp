#include "MonitorStore.h"

#include "MonitorJson.h"
#include "StorageFolder.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>

namespace ostrel {

namespace {

/// "unreadable-20261120T191500Z"
std::string unreadableSuffix(Timestamp now)
{
    std::string text = "unreadable-" + formatTimestamp(now).toStdString();
    std::erase(text, ':');
    text.erase(text.find_last_of('-'), 1);
    text.erase(text.find_last_of('-'), 1);
    return text;
}

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

auto since(Timestamp beginning)
{
    return [beginning](const Check &check) { return check.timestamp >= beginning; };
}

} // namespace

QString MonitorStore::defaultStorageDir()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/Vantry");
}

MonitorStore::MonitorStore(const QString &storageDir, Access access, WallClock now, QObject *parent)
    : MonitorStore(storageDir, StoredRecords::read(storageDir), access, std::move(now), parent)
{
}

MonitorStore::MonitorStore(const QString &storageDir, StoredRecords records, Access access,
                           WallClock now, QObject *parent)
    : QObject(parent)
    , m_storageDir(storageDir)
    , m_access(access)
    , m_now(std::move(now))
    , m_monitorsFile{AtomicFile(StoredRecords::monitorsPath(storageDir)),
                     records.areMonitorsUnreadable}
    , m_checksFile{AtomicFile(StoredRecords::checksPath(storageDir)), records.areChecksUnreadable}
    , m_checksContent(std::move(records.checksContent))
    , m_monitors(std::move(records.monitors))
    , m_checks(std::move(records.checks))
{
    if (m_access == Access::readWrite)
        prepareFolder();
}

const QString &MonitorStore::storageDir() const
{
    return m_storageDir;
}

const QList<Monitor> &MonitorStore::monitors() const
{
    return m_monitors;
}

std::optional<Monitor> MonitorStore::monitor(const QUuid &id) const
{
    const auto found = std::ranges::find(m_monitors, id, &Monitor::id);
    return found == m_monitors.end() ? std::nullopt : std::optional(*found);
}

std::span<const Check> MonitorStore::checks(const QUuid &monitorId) const
{
    const auto found = m_checks.find(monitorId);
    return found == m_checks.end() ? std::span<const Check>() : found->second.checks();
}

QList<QUuid> MonitorStore::checkedIds() const
{
    QList<QUuid> ids;
    for (const auto &[id, history] : m_checks)
        ids += id;
    return ids;
}

void MonitorStore::addMonitor(const Monitor &monitor)
{
    const QUuid id = monitor.id;
    const bool hadChecks = !checks(id).empty();
    m_monitors.append(monitor);
    m_checks.insert_or_assign(id, CheckHistory(id));
    saveMonitors();
    Q_EMIT monitorsChanged();
    if (hadChecks)
        Q_EMIT checksChanged(id);
}

void MonitorStore::updateMonitor(const Monitor &monitor)
{
    const auto found = std::ranges::find(m_monitors, monitor.id, &Monitor::id);
    if (found == m_monitors.end())
        return;
    *found = monitor;
    saveMonitors();
    Q_EMIT monitorsChanged();
}

void MonitorStore::deleteMonitor(const QUuid &id)
{
    // The caller's id may be that of the very record that goes.
    const QUuid deleted = id;
    m_monitors.removeIf([&](const Monitor &monitor) { return monitor.id == deleted; });
    m_checks.erase(deleted);
    saveMonitors();
    saveChecks();
    Q_EMIT monitorsChanged();
    Q_EMIT checksChanged(deleted);
}

void MonitorStore::addCheck(const Check &check)
{
    const QUuid monitorId = check.monitorId;
    CheckHistory &history = historyOf(monitorId);
    history.append(check);
    history.keepNewest(maxChecksPerMonitor);
    saveChecks();
    Q_EMIT checksChanged(monitorId);
}

std::optional<Check> MonitorStore::latestCheck(const Monitor &monitor) const
{
    const auto history = checks(monitor.id);
    return history.empty() ? std::nullopt : std::optional(history.back());
}

MonitorStatus MonitorStore::status(const Monitor &monitor) const
{
    if (!monitor.isEnabled)
        return MonitorStatus::paused;
    const auto history = checks(monitor.id);
    if (history.empty())
        return MonitorStatus::pending;
    return history.back().isUp ? MonitorStatus::up : MonitorStatus::down;
}

MonitorStatus MonitorStore::overallStatus() const
{
    bool anyUp = false;
    bool anyPending = false;
    for (const Monitor &monitor : m_monitors) {
        const MonitorStatus current = status(monitor);
        if (current == MonitorStatus::down)
            return MonitorStatus::down;
        anyUp |= current == MonitorStatus::up;
        anyPending |= current == MonitorStatus::pending;
    }
    return anyUp && !anyPending ? MonitorStatus::up : MonitorStatus::pending;
}

double MonitorStore::uptime(const QUuid &monitorId, std::chrono::hours window) const
{
    qint64 total = 0;
    qint64 up = 0;
    const auto isRecent = since(beginningOf(window));
    // One by one: a clock that was set back leaves a history out of order.
    for (const Check &check : checks(monitorId)) {
        if (!isRecent(check))
            continue;
        ++total;
        up += check.isUp ? 1 : 0;
    }
    return total == 0 ? 1.0 : static_cast<double>(up) / static_cast<double>(total);
}

double MonitorStore::averageResponseTime(const QUuid &monitorId, std::chrono::hours window) const
{
    qint64 count = 0;
    double sum = 0;
    const auto isRecent = since(beginningOf(window));
    for (const Check &check : checks(monitorId)) {
        if (!check.isUp || !isRecent(check))
            continue;
        ++count;
        sum += check.responseTime;
    }
    return count == 0 ? 0.0 : sum / static_cast<double>(count);
}

std::vector<Check> MonitorStore::recentChecks(const QUuid &monitorId,
                                              std::chrono::hours window) const
{
    const auto history = checks(monitorId);
    const auto isRecent = since(beginningOf(window));
    std::vector<Check> recent;
    recent.reserve(static_cast<std::size_t>(std::ranges::count_if(history, isRecent)));
    std::ranges::copy_if(history, std::back_inserter(recent), isRecent);
    return recent;
}

void MonitorStore::prepareFolder() const
{
    createPrivateFolder(m_storageDir);
    if (QDir(m_storageDir) == QDir(defaultStorageDir()))
        makeFolderPrivate(m_storageDir);
    m_monitorsFile.file.removeLeftover();
    m_checksFile.file.removeLeftover();
}

void MonitorStore::saveMonitors()
{
    const auto fill = [this](ContentWriter &content) {
        content.append(viewOf(encodeMonitors(m_monitors)));
        return true;
    };
    save(m_monitorsFile, fill, AtomicFile::Flush::beforeReplacing);
}

void MonitorStore::saveChecks()
{
    HistoriesWriter writer;
    bool isComplete = true;
    const auto fill = [&](ContentWriter &content) {
        isComplete = writer.write(m_checks, m_checksContent, content);
        return isComplete;
    };
    if (save(m_checksFile, fill, AtomicFile::Flush::none, &m_checksContent)) {
        writer.tell(m_checks);
    } else if (!isComplete) {
        // Somebody has written into the file, or it can't be read any more.
        for (auto &[id, history] : m_checks)
            history.forgetStored();
        saveChecks();
    }
}

bool MonitorStore::save(File &file, const AtomicFile::Fill &fill, AtomicFile::Flush flush,
                        FileSnapshot *content) const
{
    if (m_access == Access::readOnly)
        return false;
    const bool isSaved =
        file.keepOld ? file.file.writeKeepingOld(fill, flush, unreadableSuffix(m_now()), content)
                     : file.file.write(fill, flush, content);
    file.keepOld = file.keepOld && !isSaved;
    return isSaved;
}

CheckHistory &MonitorStore::historyOf(const QUuid &monitorId)
{
    return m_checks.try_emplace(monitorId, monitorId).first->second;
}

Timestamp MonitorStore::beginningOf(std::chrono::hours window) const
{
    return m_now() - window;
}

} // namespace ostrel
