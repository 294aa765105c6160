#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QTimeZone>

#include <optional>

namespace ostrel {

/// How many failures in a row mean that a monitor is down. A single one may be chance.
inline constexpr qint64 failuresUntilDown = 2;

/// Which notifications one check calls for.
struct DueNotifications
{
    bool slow = false;
    /// Days until the certificate expires, negative if it has expired; absent if there is nothing
    /// to notify about.
    std::optional<qint64> certificateDays = {};
    bool down = false;
    bool recovery = false;

    bool operator==(const DueNotifications &) const = default;
};

/// Whether @p check was up and answered by HTTP, but took longer than the monitor's threshold.
[[nodiscard]] bool isSlow(const Monitor &monitor, const Check &check);

/// Decides when to notify, for @p check of @p monitor after @p failuresBefore failed checks in a
/// row.
///
/// Down is notified at the second failure in a row, and only then; the recovery at the first
/// success after that. The monitor's two switches gate them. Slow and certificate are notified at
/// every check to which they apply, because they depend on that one HTTP response alone; no switch
/// gates them. The days are counted from the check's timestamp, in local time of @p timeZone.
[[nodiscard]] DueNotifications
dueNotifications(const Monitor &monitor, const Check &check, qint64 failuresBefore,
                 const QTimeZone &timeZone = QTimeZone::systemTimeZone());

} // namespace ostrel
