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
    QString identifier; ///< A new notification replaces the one that has the same identifier.
    QString title;      ///< Plain text.
    QString body;       ///< Plain text.
    InterruptionLevel level = InterruptionLevel::active;

    bool operator==(const NotificationRequest &) const = default;
};

/// The port through which notifications reach the desktop. Used on the main thread.
class NotificationCenter
{
public:
    NotificationCenter() = default;
    NotificationCenter(const NotificationCenter &) = delete;
    NotificationCenter &operator=(const NotificationCenter &) = delete;
    virtual ~NotificationCenter() = default;

    /// Asks for leave to notify, where the desktop wants to be asked. The answer is ignored.
    virtual void requestAuthorization() = 0;
    /// Shows @p request. Returns at once; what can't be shown is dropped silently.
    virtual void add(const NotificationRequest &request) = 0;
};

} // namespace ostrel
