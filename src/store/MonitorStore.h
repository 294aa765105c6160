#pragma once

#include "AtomicFile.h"
#include "Check.h"
#include "Monitor.h"
#include "StoredRecords.h"

#include <QList>
#include <QObject>
#include <QString>

#include <chrono>
#include <optional>
#include <span>
#include <vector>

namespace ostrel {

/// The single owner of all monitors and of the history of their checks.
///
/// Loads both when it is created, writes each back as soon as it changes, and answers every
/// derived question that the engine and the views ask. Lives on the main thread; every operation
/// is synchronous, file writes included. Errors of reading and writing are never reported: memory
/// stays authoritative and the next save tries again.
class MonitorStore : public QObject
{
    Q_OBJECT

public:
    enum class Access {
        readWrite,
        readOnly, ///< For looking on while another program writes: leaves the folder as it is.
    };

    /// The most checks that are kept of one monitor, the newest.
    static constexpr std::size_t maxChecksPerMonitor = 2000;

    /// The folder "Vantry" in the user's application-support folder.
    [[nodiscard]] static QString defaultStorageDir();

    /// Creates @p storageDir with its missing parents, for its user alone (0700), and loads it. One
    /// that exists keeps its mode, unless it is the default one. A file that can't be loaded counts
    /// as empty, and is kept under another name when the first save replaces it:
    /// "monitors.json.unreadable-20261120T191500Z".
    explicit MonitorStore(const QString &storageDir, Access access = Access::readWrite,
                          WallClock now = systemNow, QObject *parent = nullptr);
    /// The same with what has already been read of the folder.
    MonitorStore(const QString &storageDir, StoredRecords records,
                 Access access = Access::readWrite, WallClock now = systemNow,
                 QObject *parent = nullptr);

    [[nodiscard]] const QString &storageDir() const;

    /// All monitors in the user's order.
    [[nodiscard]] const QList<Monitor> &monitors() const;
    /// The first monitor with this id.
    [[nodiscard]] std::optional<Monitor> monitor(const QUuid &id) const;
    /// One monitor's history, oldest first. Valid until the store changes.
    [[nodiscard]] std::span<const Check> checks(const QUuid &monitorId) const;
    /// The ids of all monitors, known or not, that have an entry in the history.
    [[nodiscard]] QList<QUuid> checkedIds() const;

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
    /// `monitors` has changed, and has been saved.
    void monitorsChanged();
    /// The history of one monitor has changed, and has been saved.
    /// After addMonitor(), only where that has dropped checks.
    void checksChanged(const QUuid &monitorId);

private:
    struct File
    {
        AtomicFile file;
        bool keepOld = false; ///< What it holds could not be loaded, and no save has replaced it.
    };

    void prepareFolder() const;
    void saveMonitors();
    void saveChecks();
    bool save(File &file, const AtomicFile::Fill &fill, AtomicFile::Flush flush,
              FileSnapshot *content = nullptr) const;
    [[nodiscard]] CheckHistory &historyOf(const QUuid &monitorId);
    [[nodiscard]] Timestamp beginningOf(std::chrono::hours window) const;

    QString m_storageDir;
    Access m_access;
    WallClock m_now;
    File m_monitorsFile;
    File m_checksFile;
    FileSnapshot m_checksContent; ///< What that held when it was last read or saved.
    QList<Monitor> m_monitors;
    CheckHistories m_checks;
};

} // namespace ostrel
