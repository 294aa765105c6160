#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QFuture>
#include <QUuid>

namespace ostrel {

/// A new check of @p monitor with an id of its own, down and without results yet.
[[nodiscard]] inline Check newCheck(const Monitor &monitor, Timestamp timestamp)
{
    return {.id = QUuid::createUuid(), .monitorId = monitor.id, .timestamp = timestamp};
}

/// One way to check a monitor. Records nothing and sends no notification. Main thread.
class MonitorCheck
{
public:
    MonitorCheck() = default;
    MonitorCheck(const MonitorCheck &) = delete;
    MonitorCheck &operator=(const MonitorCheck &) = delete;
    virtual ~MonitorCheck() = default;

    /// Checks @p monitor once. Every failure of the site is a `Check` that is not up. If the check
    /// itself can't be carried out, for example because there isn't enough memory, this throws or
    /// the future is cancelled.
    [[nodiscard]] virtual QFuture<Check> run(const Monitor &monitor) = 0;
};

/// Like check.run(), but never throws: the future is cancelled instead.
[[nodiscard]] QFuture<Check> beginCheck(MonitorCheck &check, const Monitor &monitor);
/// The outcome of the finished @p run: its result, or a check that says that it couldn't be carried
/// out.
[[nodiscard]] Check outcomeOf(const QFuture<Check> &run, const Monitor &monitor);

} // namespace ostrel
