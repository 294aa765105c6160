#pragma once

#include <QString>

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

    bool operator==(const NotificationRequest &) const = default;
};

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
};

} // namespace ostrel
