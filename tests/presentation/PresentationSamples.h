#pragma once

#include "Check.h"
#include "Monitor.h"
#include "MonitorStore.h"

#include <QTemporaryDir>

#include <vector>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// A Friday, 15:42 UTC.
[[nodiscard]] Timestamp sampleNow();

[[nodiscard]] Monitor sampleMonitor(const QString &name = u"Shop"_s);
[[nodiscard]] Check upCheck(const Monitor &monitor, Timestamp timestamp, double responseTime = 245);
[[nodiscard]] Check downCheck(const Monitor &monitor, Timestamp timestamp,
                              const OptionalText &error = {});
/// @p count checks that were up, a minute apart, the last one at @p newest.
[[nodiscard]] std::vector<Check> upChecks(const Monitor &monitor, int count, Timestamp newest);

/// A store in a folder of its own, on a clock that the test sets.
class SampleStore
{
public:
    /// Adds a monitor and its checks.
    Monitor add(Monitor monitor, const std::vector<Check> &checks = {});

    Timestamp now = sampleNow();

private:
    QTemporaryDir m_folder;

public:
    MonitorStore store{m_folder.path(), MonitorStore::Access::readWrite, [this] { return now; }};
};

} // namespace ostrel::test
