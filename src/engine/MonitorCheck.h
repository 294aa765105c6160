#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QFuture>
#include <QUuid>

namespace ostrel {

/// A check of @p monitor under an identity of its own, down and without any finding yet.
[[nodiscard]] inline Check newCheck(const Monitor &monitor, Timestamp timestamp)
{
    return {.id = QUuid::createUuid(), .monitorId = monitor.id, .timestamp = timestamp};
}

/// One way to check a monitor. Only looks: it records nothing and notifies nobody. Main thread.
class MonitorCheck
{
public:
    MonitorCheck() = default;
    MonitorCheck(const MonitorCheck &) = delete;
    MonitorCheck &operator=(const MonitorCheck &) = delete;
    virtual ~MonitorCheck() = default;

    /// Checks @p monitor once. Every failure of the site is a `Check` that is not up. If the check
    /// itself can't be carried out, for example for want of memory, this throws or the future is
    /// cancelled.
    [[nodiscard]] virtual QFuture<Check> run(const Monitor &monitor) = 0;
};

/// check.run(), but never throws: the future is then cancelled.
[[nodiscard]] QFuture<Check> beginCheck(MonitorCheck &check, const Monitor &monitor);
/// What came of a @p run that has finished: its result, or a check that says that it could not be
/// carried out.
[[nodiscard]] Check outcomeOf(const QFuture<Check> &run, const Monitor &monitor);

} // namespace ostrel
