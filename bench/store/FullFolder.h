#pragma once

#include "Check.h"
#include "Monitor.h"
#include "MonitorStore.h"

#include <QList>
#include <QString>
#include <QUuid>

#include <random>
#include <string>
#include <vector>

namespace ostrel::bench {

constexpr std::size_t checksPerMonitor = MonitorStore::maxChecksPerMonitor;

/// The content of an https monitor's checks, one a minute; one in fifty has failed.
class CheckSource
{
public:
    Check next(const QUuid &monitorId);

private:
    std::minstd_rand m_random;
    int m_number = 0;
};

/// Writes the histories of @p monitors monitors into @p folder, each of them full, and returns the
/// monitors' ids.
std::vector<QUuid> fillFolder(const QString &folder, int monitors);

/// A monitor for each of @p ids, which checks @p url every five minutes.
[[nodiscard]] QList<Monitor> monitorsOf(const std::vector<QUuid> &ids, const QString &url);
/// Writes @p monitors into @p folder.
void writeMonitors(const QString &folder, const QList<Monitor> &monitors);

/// The moment after the last check of a full folder.
[[nodiscard]] Timestamp fullFolderNow();

/// The path of the histories in @p folder, for the C library.
[[nodiscard]] std::string checksPath(const QString &folder);

} // namespace ostrel::bench
