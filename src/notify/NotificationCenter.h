#pragma once

#include <QByteArray>
#include <QString>
#include <QUuid>

#include <functional>
#include <utility>

namespace ostrel {

enum class InterruptionLevel {
    active,        ///< The desktop's usual level.
    timeSensitive, ///< Stays until it is seen.
};

/// One desktop notification. Always carries the desktop's default sound.
struct NotificationRequest
{
    QString identifier; ///< A new notification replaces an earlier one with the same identifier.
    QString title;      ///< Plain text.
    QString body;       ///< Plain text.
    InterruptionLevel level = InterruptionLevel::active;
    QUuid monitorId = {}; ///< The monitor that a click on the notification opens.

    bool operator==(const NotificationRequest &) const = default;
};

/// Called when the user has clicked a notification: with the id of its monitor, which may have been
/// deleted since, and with the desktop's token for raising a window, which may be empty.
using NotificationHandler =
    std::function<void(const QUuid &monitorId, const QByteArray &activationToken)>;

/// The interface through which notifications reach the desktop. Main thread only.
class NotificationCenter
{
public:
    NotificationCenter() = default;
    NotificationCenter(const NotificationCenter &) = delete;
    NotificationCenter &operator=(const NotificationCenter &) = delete;
    virtual ~NotificationCenter() = default;

    /// Asks for permission to notify, if the desktop requires it. The answer is ignored.
    virtual void requestAuthorization() = 0;
    /// Shows @p request. Returns at once; a notification that can't be shown is dropped silently.
    virtual void add(const NotificationRequest &request) = 0;

    /// Sets what a click on a notification of this program calls; empty for nothing.
    void onClick(NotificationHandler handler) { m_handler = std::move(handler); }

protected:
    /// Tells the handler, if there is one.
    void clicked(const QUuid &monitorId, const QByteArray &activationToken) const
    {
        if (m_handler)
            m_handler(monitorId, activationToken);
    }

private:
    NotificationHandler m_handler;
};

} // namespace ostrel
