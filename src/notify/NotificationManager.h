#pragma once

#include "Monitor.h"
#include "NotificationCenter.h"
#include "OptionalText.h"

namespace ostrel {

/// Composes the four kinds of notification and posts them. dueNotifications() decides when. Names
/// and errors are cut to one line each, so that no title or body is longer than a few hundred
/// characters. Main thread only; holds no state.
class NotificationManager
{
public:
    /// @p center must outlive the manager.
    explicit NotificationManager(NotificationCenter &center);

    void notifyDown(const Monitor &monitor, const OptionalText &error);
    void notifyRecovery(const Monitor &monitor, Milliseconds responseTime);
    void notifySlow(const Monitor &monitor, Milliseconds responseTime, Milliseconds threshold);
    /// @p days until the certificate expires, negative if it has expired.
    void notifyCertificateExpiring(const Monitor &monitor, qint64 days);

private:
    NotificationCenter &m_center;
};

} // namespace ostrel
