#pragma once

#include "AtomicFile.h"
#include "Check.h"
#include "FlushThread.h"
#include "Monitor.h"
#include "StoredRecords.h"

#include <QFuture>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace ostrel {

class FolderOwnership;

/// The single owner of all monitors and of their checks' histories.
///
/// Loads both when it is created, writes each back as soon as it changes, and answers every derived
/// question of the engine and the views. Lives on the main thread; every operation is synchronous,
/// file writes included. No error of reading or writing stops it: memory stays authoritative. A
/// save that failed is retried with every save of either file, once a minute, and at the end.
///
/// A power cut loses no monitor, and of the history only what was recorded since its last flush to
/// the disk. It is flushed with the first check, every ten minutes, and at the end, which waits for
/// that at most half a second. In between, most of what is saved never reaches the disk.
class MonitorStore : public QObject
{
    Q_OBJECT

public:
    enum class Access {
        readWrite,
        readOnly, ///< For reading while another program writes: leaves the folder unchanged.
    };

    /// A store's construction parameters, besides its folder.
    struct Options
    {
        Access access = Access::readWrite;
        WallClock now = systemNow;
        FolderOwnership *ownership = nullptr; ///< Null if no other program could own the folder.
        AtomicFile::Sync sync = AtomicFile::waitForTheDisk; ///< Called on another thread.
        std::chrono::milliseconds retryInterval = std::chrono::minutes(1);
        std::chrono::milliseconds flushInterval = std::chrono::minutes(10);
    };

    /// Upper bound for the checks kept of one monitor; the newest are kept.
    static constexpr std::size_t maxChecksPerMonitor = 2000;

    /// The folder "Vantry" in the user's application-support folder.
    [[nodiscard]] static QString defaultStorageDir();

    /// Creates @p storageDir with its missing parents, for its user alone (0700), and loads it. An
    /// existing folder keeps its mode. A file that can't be loaded counts as empty, and is kept
    /// under another name when the first save replaces it:
    /// "monitors.json.unreadable-20261120T191500Z". A file that appeared only after loading, or
    /// that comes from another owner of the folder, is kept as
    /// "monitors.json.replaced-20261120T191500Z".
    explicit MonitorStore(const QString &storageDir, Access access = Access::readWrite,
                          WallClock now = systemNow, QObject *parent = nullptr);
    /// The same with what has already been read from the folder.
    MonitorStore(const QString &storageDir, StoredRecords records, Options options,
                 QObject *parent = nullptr);
    /// Retries failed saves once more, and flushes the history to the disk.
    ~MonitorStore() override;

    [[nodiscard]] const QString &storageDir() const;

    /// Whether everything has been saved and the folder is writable. True for a read-only store,
    /// which has nothing to save.
    [[nodiscard]] bool canSave() const;
    /// Why canSave() is false, in the system's language, as the end of a sentence; empty if it is
    /// true.
    [[nodiscard]] const QString &saveFailure() const;

    /// All monitors in the user's order.
    [[nodiscard]] const QList<Monitor> &monitors() const;
    /// The first monitor with this id.
    [[nodiscard]] std::optional<Monitor> monitor(const QUuid &id) const;
    /// One monitor's history, oldest first. Valid until the store changes.
    [[nodiscard]] std::span<const Check> checks(const QUuid &monitorId) const;

    /// Appends @p monitor, with an empty history: a history already stored under its id is dropped,
    /// from the file at the next save of the checks.
    void addMonitor(const Monitor &monitor);
    /// The same with @p history, oldest first, of which at most the newest maxChecksPerMonitor are
    /// kept. All of its checks must be of @p monitor. The history is flushed at once.
    void addMonitor(const Monitor &monitor, std::span<const Check> history);
    /// Replaces the monitor with the same id in place; does nothing if there is none.
    void updateMonitor(const Monitor &monitor);
    /// Removes the monitor with this id and its history.
    void deleteMonitor(const QUuid &id);
    /// Appends @p check to its monitor's history, even of an unknown monitor, and drops the oldest
    /// checks above the bound.
    void addCheck(const Check &check);

    /// Runs @p changes, which may call the functions above, and saves once after all of them. The
    /// signals of each change come before that.
    void changeTogether(const std::function<void()> &changes);

    [[nodiscard]] std::optional<Check> latestCheck(const Monitor &monitor) const;
    [[nodiscard]] MonitorStatus status(const Monitor &monitor) const;
    /// Considers the enabled monitors: down if one is, up if all are, otherwise pending; never
    /// paused.
    [[nodiscard]] MonitorStatus overallStatus() const;

    /// The share of checks that were up, in 0…1, in the window of the last @p window; 1 if there
    /// are none. A check exactly at the window's beginning is included.
    [[nodiscard]] double uptime(const QUuid &monitorId, std::chrono::hours window) const;
    /// The mean response time, in milliseconds, of the window's checks that were up; 0 if there are
    /// none.
    [[nodiscard]] double averageResponseTime(const QUuid &monitorId,
                                             std::chrono::hours window) const;
    /// The window's checks, oldest first.
    [[nodiscard]] std::vector<Check> recentChecks(const QUuid &monitorId,
                                                  std::chrono::hours window) const;

Q_SIGNALS:
    void canSaveChanged();
    /// `monitors` has changed, and has been saved if possible.
    void monitorsChanged();
    /// The history of one monitor has changed, and has been saved if possible. After addMonitor(),
    /// only emitted if checks have been dropped or added.
    void checksChanged(const QUuid &monitorId);

private:
    /// One of the two files.
    struct File
    {
        AtomicFile file;
        FileSnapshot content; ///< Its content when it was last read or saved.
        /// The word for the old content, which is kept when it is replaced; null if it isn't kept.
        const char *keptAs = nullptr;
        bool isBehind = false; ///< Memory has something that the file lacks.
    };

    void save(std::initializer_list<File *> changed);
    void catchUp();
    [[nodiscard]] QString saveWhatIsBehind();
    [[nodiscard]] bool isOurs();
    [[nodiscard]] bool saveMonitors();
    [[nodiscard]] bool saveChecks();
    [[nodiscard]] bool write(File &file, const AtomicFile::Fill &fill, AtomicFile::Flush flush);
    void flushChecks();
    void needNewCopy();
    [[nodiscard]] bool hasFlushedCopy() const;
    [[nodiscard]] CheckHistory &historyOf(const QUuid &monitorId);
    [[nodiscard]] Timestamp beginningOf(std::chrono::hours window) const;

    QString m_storageDir;
    Access m_access;
    WallClock m_now;
    FolderOwnership *m_ownership;
    bool m_isOurs = false; ///< Whether the folder was ours when last checked.
    FlushThread m_flushThread;
    File m_monitorsFile;
    File m_checksFile;
    bool m_isHeld = false; ///< Whether changeTogether() is running.
    QString m_failure;     ///< Why the last attempt didn't save everything.
    QTimer m_retry;
    QTimer m_flush; ///< Started by the first save of checks that may not be on the disk.
    std::chrono::milliseconds m_flushInterval;
    QFuture<bool> m_flushedCopy; ///< Has no result if there is none that would do.
    QList<Monitor> m_monitors;
    CheckHistories m_checks;
};

} // namespace ostrel
