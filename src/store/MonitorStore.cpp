#include "MonitorStore.h"

#include "FolderOwnership.h"
#include "MonitorJson.h"
#include "StorageFolder.h"

#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// How long an edit waits for the disk, so that a power cut can't lose the monitors. It doesn't
/// wait longer for a slower disk.
constexpr auto patienceWithTheDisk = 200ms;
constexpr auto patienceAtTheEnd = 500ms;

constexpr auto unreadable = "unreadable";
constexpr auto replaced = "replaced";

/// For example "unreadable-20261120T191500Z".
std::string keptSuffix(const char *what, Timestamp now)
{
    QByteArray time = formatTimestamp(now);
    time.replace(":", "").replace("-", "");
    return std::string(what) + '-' + time.toStdString();
}

/// The word for the content that the first save replaces: for content that couldn't be loaded, or
/// that appears only after the load. Null if the content is ours.
const char *wordForOldContent(const FileSnapshot &loaded, bool isUnreadable)
{
    if (isUnreadable)
        return unreadable;
    return loaded.isOfAFile() ? nullptr : replaced;
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
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/Vantry"_s;
}

MonitorStore::MonitorStore(const QString &storageDir, Access access, WallClock now, QObject *parent)
    : MonitorStore(storageDir, StoredRecords::read(storageDir),
                   Options{.access = access, .now = std::move(now)}, parent)
{
}

MonitorStore::MonitorStore(const QString &storageDir, StoredRecords records, Options options,
                           QObject *parent)
    : QObject(parent)
    , m_storageDir(storageDir)
    , m_access(options.access)
    , m_now(std::move(options.now))
    , m_ownership(options.ownership)
    , m_flushThread(std::move(options.sync))
    , m_monitorsFile{.file = AtomicFile(StoredRecords::monitorsPath(storageDir),
                                        [this](const FileDescriptor &file) {
                                            return m_flushThread.flushWithin(patienceWithTheDisk,
                                                                             file);
                                        }),
                     .content = std::move(records.monitorsContent)}
    , m_checksFile{.file = AtomicFile(StoredRecords::checksPath(storageDir)),
                   .content = std::move(records.checksContent)}
    , m_flushInterval(options.flushInterval)
    , m_monitors(std::move(records.monitors))
    , m_checks(std::move(records.checks))
{
    m_monitorsFile.keptAs =
        wordForOldContent(m_monitorsFile.content, records.areMonitorsUnreadable);
    m_checksFile.keptAs = wordForOldContent(m_checksFile.content, records.areChecksUnreadable);
    if (m_access == Access::readOnly)
        return;
    m_flush.setSingleShot(true);
    m_flush.setInterval(0);
    connect(&m_flush, &QTimer::timeout, this, &MonitorStore::flushChecks);
    connect(&m_retry, &QTimer::timeout, this, &MonitorStore::catchUp);
    m_retry.start(options.retryInterval);
    catchUp();
}

MonitorStore::~MonitorStore()
{
    if (!canSave())
        catchUp();
    if (m_flush.isActive())
        flushChecks();
    m_flushThread.finish(patienceAtTheEnd);
}

const QString &MonitorStore::storageDir() const
{
    return m_storageDir;
}

bool MonitorStore::canSave() const
{
    return m_failure.isEmpty();
}

const QString &MonitorStore::saveFailure() const
{
    return m_failure;
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

void MonitorStore::addMonitor(const Monitor &monitor)
{
    addMonitor(monitor, {});
}

void MonitorStore::addMonitor(const Monitor &monitor, std::span<const Check> history)
{
    const QUuid id = monitor.id;
    const bool changesChecks = !checks(id).empty() || !history.empty();
    m_monitors.append(monitor);
    CheckHistory &added = m_checks.insert_or_assign(id, CheckHistory(id)).first->second;
    for (const Check &check : history)
        added.append(check);
    added.keepNewest(maxChecksPerMonitor);
    m_checksFile.isBehind = m_checksFile.isBehind || !history.empty();
    if (!history.empty())
        needNewCopy();
    save({&m_monitorsFile});
    Q_EMIT monitorsChanged();
    if (changesChecks)
        Q_EMIT checksChanged(id);
}

void MonitorStore::updateMonitor(const Monitor &monitor)
{
    const auto found = std::ranges::find(m_monitors, monitor.id, &Monitor::id);
    if (found == m_monitors.end())
        return;
    *found = monitor;
    save({&m_monitorsFile});
    Q_EMIT monitorsChanged();
}

void MonitorStore::deleteMonitor(const QUuid &id)
{
    // The caller's id may be a reference into the record that is removed.
    const QUuid deleted = id;
    m_monitors.removeIf([&](const Monitor &monitor) { return monitor.id == deleted; });
    m_checks.erase(deleted);
    save({&m_monitorsFile, &m_checksFile});
    Q_EMIT monitorsChanged();
    Q_EMIT checksChanged(deleted);
}

void MonitorStore::addCheck(const Check &check)
{
    const QUuid monitorId = check.monitorId;
    CheckHistory &history = historyOf(monitorId);
    history.append(check);
    history.keepNewest(maxChecksPerMonitor);
    save({&m_checksFile});
    Q_EMIT checksChanged(monitorId);
}

void MonitorStore::changeTogether(const std::function<void()> &changes)
{
    m_isHeld = true;
    changes();
    m_isHeld = false;
    if (m_monitorsFile.isBehind || m_checksFile.isBehind)
        catchUp();
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
    // Tests every check: if the clock was set back, a history is out of order.
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

void MonitorStore::save(std::initializer_list<File *> changed)
{
    for (File *file : changed)
        file->isBehind = true;
    if (!m_isHeld)
        catchUp();
}

void MonitorStore::catchUp()
{
    if (m_access == Access::readOnly)
        return;
    const bool couldSave = canSave();
    m_failure = saveWhatIsBehind();
    if (canSave() != couldSave)
        Q_EMIT canSaveChanged();
}

/// Returns why something is still unsaved, or would be; empty if nothing is.
QString MonitorStore::saveWhatIsBehind()
{
    if (!prepareToWrite(m_storageDir)) {
        QString reason = qt_error_string(errno);
        m_isOurs = false;
        return reason;
    }
    if (!isOurs())
        return u"another program has it, or it can't be locked"_s;
    for (File *file : {&m_monitorsFile, &m_checksFile})
        file->isBehind = file->isBehind || (file->content.isOfAFile() && !file->file.exists());
    // Saves each file even if the other can't be saved.
    QString failure;
    if (m_monitorsFile.isBehind && !saveMonitors())
        failure = qt_error_string(errno);
    if (m_checksFile.isBehind && !saveChecks())
        failure = qt_error_string(errno);
    return failure;
}

bool MonitorStore::isOurs()
{
    const bool wasOurs = std::exchange(m_isOurs, !m_ownership || m_ownership->renew());
    if (!m_isOurs || wasOurs)
        return m_isOurs;
    for (File *file : {&m_monitorsFile, &m_checksFile}) {
        file->file.removeLeftovers();
        // Another program may have owned the folder meanwhile, and its user may have entered data.
        if (!file->keptAs && !file->file.holds(file->content))
            file->keptAs = replaced;
    }
    needNewCopy();
    return true;
}

bool MonitorStore::saveMonitors()
{
    const auto fill = [this](ContentWriter &content) {
        content.append(viewOf(encodeMonitors(m_monitors)));
        return true;
    };
    if (!write(m_monitorsFile, fill, AtomicFile::Flush::beforeReplacing))
        return false;
    m_flushThread.flushLater(m_monitorsFile.file);
    return true;
}

bool MonitorStore::saveChecks()
{
    HistoriesWriter writer;
    bool isComplete = true;
    const auto fill = [&](ContentWriter &content) {
        isComplete = writer.write(m_checks, m_checksFile.content, content);
        return isComplete;
    };
    // Without a flushed copy to go back to, nothing may be left unfinished.
    const auto flush = hasFlushedCopy() ? AtomicFile::Flush::avoided : AtomicFile::Flush::none;
    if (write(m_checksFile, fill, flush)) {
        writer.tell(m_checks);
        if (!m_flush.isActive())
            m_flush.start();
        return true;
    }
    if (isComplete)
        return false;
    // Another program has written into the file, or it can't be read any more.
    for (auto &[id, history] : m_checks)
        history.forgetStored();
    return saveChecks();
}

bool MonitorStore::write(File &file, const AtomicFile::Fill &fill, AtomicFile::Flush flush)
{
    const bool isSaved =
        file.keptAs ? file.file.writeKeepingOld(fill, flush, keptSuffix(file.keptAs, m_now()),
                                                &file.content)
                    : file.file.write(fill, flush, &file.content);
    if (isSaved)
        file.keptAs = nullptr;
    file.isBehind = !isSaved;
    return isSaved;
}

void MonitorStore::flushChecks()
{
    m_flush.setInterval(m_flushInterval);
    m_flushedCopy =
        m_flushThread.copyLater(m_checksFile.file, StoredRecords::flushedChecksPath(m_storageDir));
}

/// Has the history flushed as soon as it is saved again.
void MonitorStore::needNewCopy()
{
    m_flushedCopy = {};
    m_flush.setInterval(0);
}

/// Whether the last copy of the history has reached the disk and is still there.
bool MonitorStore::hasFlushedCopy() const
{
    return m_flushedCopy.isResultReadyAt(0) && m_flushedCopy.resultAt(0) &&
           AtomicFile(StoredRecords::flushedChecksPath(m_storageDir)).exists();
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
