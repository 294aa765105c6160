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

/// One way to check a monitor. Main thread.
class MonitorCheck
{
public:
    MonitorCheck() = default;
    MonitorCheck(const MonitorCheck &) = delete;
    MonitorCheck &operator=(const MonitorCheck &) = delete;
    virtual ~MonitorCheck() = default;

    /// Checks @p monitor once. Every failure is a `Check` that is not up; the future is cancelled
    /// only where the program ends first.
    [[nodiscard]] virtual QFuture<Check> run(const Monitor &monitor) = 0;
};

} // namespace ostrel
