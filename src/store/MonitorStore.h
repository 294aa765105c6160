#pragma once

#include "AtomicFile.h"
#include "Check.h"
#include "FlushThread.h"
#include "Monitor.h"
#include "StoredRecords.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <optional>
#include <span>
#include <vector>

namespace ostrel {

class FolderOwnership;

/// The single owner of all monitors and of the history of their checks.
///
/// Loads both when it is created, writes each back as soon as it changes, and answers every
/// derived question that the engine and the views ask. Lives on the main thread; every operation
/// is synchronous, file writes included. No error of reading or writing stops it: memory stays
/// authoritative. What could not be saved is behind, and tried again with every save of either
/// file, once a minute, and at the end.
///
/// A power cut loses no monitor, and of the history what was recorded since the disk took it: that
/// is seen to every ten minutes, and at the end, for which nobody waits longer than half a second.
class MonitorStore : public QObject
{
    Q_OBJECT

public:
    enum class Access {
        readWrite,
        readOnly, ///< For looking on while another program writes: leaves the folder as it is.
    };

    /// What a store is made with, beside its folder.
    struct Options
    {
        Access access = Access::readWrite;
        WallClock now = systemNow;
        FolderOwnership *ownership = nullptr; ///< Null if nobody else could have the folder.
        AtomicFile::Sync sync = AtomicFile::waitForTheDisk; ///< On another thread.
        std::chrono::milliseconds retryInterval = std::chrono::minutes(1);
        std::chrono::milliseconds flushInterval = std::chrono::minutes(10);
    };

    /// The most checks that are kept of one monitor, the newest.
    static constexpr std::size_t maxChecksPerMonitor = 2000;

    /// The folder "Vantry" in the user's application-support folder.
    [[nodiscard]] static QString defaultStorageDir();

    /// Creates @p storageDir with its missing parents, for its user alone (0700), and loads it. One
    /// that exists keeps its mode. A file that can't be loaded counts as empty, and is kept under
    /// another name when the first save replaces it:
    /// "monitors.json.unreadable-20261120T191500Z"; one that only came after that, or from another
    /// owner of the folder, is kept as "monitors.json.replaced-20261120T191500Z".
    explicit MonitorStore(const QString &storageDir, Access access = Access::readWrite,
                          WallClock now = systemNow, QObject *parent = nullptr);
    /// The same with what has already been read of the folder.
    MonitorStore(const QString &storageDir, StoredRecords records, Options options,
                 QObject *parent = nullptr);
    /// Tries once more to save what is behind, and has the disk take the history.
    ~MonitorStore() override;

    [[nodiscard]] const QString &storageDir() const;

    /// Whether all that was to be saved has been, and the folder can be written. A store that only
    /// looks on has nothing to save.
    [[nodiscard]] bool canSave() const;
    /// Why it can't, in the system's language, as the end of a sentence; empty if it can.
    [[nodiscard]] const QString &saveFailure() const;

    /// All monitors in the user's order.
    [[nodiscard]] const QList<Monitor> &monitors() const;
    /// The first monitor with this id.
    [[nodiscard]] std::optional<Monitor> monitor(const QUuid &id) const;
    /// One monitor's history, oldest first. Valid until the store changes.
    [[nodiscard]] std::span<const Check> checks(const QUuid &monitorId) const;

    /// Appends @p monitor, with an empty history: one that is stored under its id is dropped, from
    /// the file at the next save of the checks.
    void addMonitor(const Monitor &monitor);
    /// Replaces the monitor of the same id in place; does nothing where there is none.
    void updateMonitor(const Monitor &monitor);
    /// Removes the monitor with this id and its history.
    void deleteMonitor(const QUuid &id);
    /// Appends @p check to its monitor's history, known or not, and drops what is over the bound.
    void addCheck(const Check &check);

    [[nodiscard]] std::optional<Check> latestCheck(const Monitor &monitor) const;
    [[nodiscard]] MonitorStatus status(const Monitor &monitor) const;
    /// Of the enabled monitors: down if one is, up if all are, otherwise pending; never paused.
    [[nodiscard]] MonitorStatus overallStatus() const;

    /// The share of checks that were up, in 0…1, in the window of the last @p window; 1 where
    /// there are none. A check stamped exactly at the window's beginning is inside.
    [[nodiscard]] double uptime(const QUuid &monitorId, std::chrono::hours window) const;
    /// The mean response time, in milliseconds, of the window's checks that were up; 0 where there
    /// are none.
    [[nodiscard]] double averageResponseTime(const QUuid &monitorId,
                                             std::chrono::hours window) const;
    /// The window's checks, oldest first.
    [[nodiscard]] std::vector<Check> recentChecks(const QUuid &monitorId,
                                                  std::chrono::hours window) const;

Q_SIGNALS:
    void canSaveChanged();
    /// `monitors` has changed, and has been saved if that can be.
    void monitorsChanged();
    /// The history of one monitor has changed, and has been saved if that can be.
    /// After addMonitor(), only where that has dropped checks.
    void checksChanged(const QUuid &monitorId);

private:
    /// One of the two files.
    struct File
    {
        AtomicFile file;
        FileSnapshot content; ///< What it held when it was last read or saved.
        /// What is said of the old content, which is kept when it is replaced; null if it isn't.
        const char *keptAs = nullptr;
        bool isBehind = false; ///< Memory has something that it hasn't.
    };

    void save(std::initializer_list<File *> changed);
    void catchUp();
    [[nodiscard]] QString saveWhatIsBehind();
    [[nodiscard]] bool isOurs();
    [[nodiscard]] bool saveMonitors();
    [[nodiscard]] bool saveChecks();
    [[nodiscard]] bool write(File &file, const AtomicFile::Fill &fill, AtomicFile::Flush flush);
    void flushChecks();
    [[nodiscard]] CheckHistory &historyOf(const QUuid &monitorId);
    [[nodiscard]] Timestamp beginningOf(std::chrono::hours window) const;

    QString m_storageDir;
    Access m_access;
    WallClock m_now;
    FolderOwnership *m_ownership;
    bool m_isOurs = false; ///< Whether the folder was, when last asked for.
    FlushThread m_flushThread;
    File m_monitorsFile;
    File m_checksFile;
    QString m_failure; ///< Why the last attempt did not save all.
    QTimer m_retry;
    QTimer m_flush; ///< Runs from the first save of checks that the disk may not have taken.
    QList<Monitor> m_monitors;
    CheckHistories m_checks;
};

} // namespace ostrel
