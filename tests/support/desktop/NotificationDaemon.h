#pragma once

#include "BoundProcess.h"
#include "PrivateBus.h"
#include "VirtualDisplay.h"

#include <QList>
#include <QString>
#include <QTemporaryDir>

#include <optional>

namespace ostrel::test {

/// A notification as a real daemon shows it.
struct ShownNotification
{
    enum class Urgency { low, normal, critical };

    uint id = 0;
    QString application;
    Urgency urgency = Urgency::normal;
    QString title; ///< As it was sent.
    QString body;  ///< As a reader sees it, with markup applied.

    bool operator==(const ShownNotification &) const = default;
};

/// A real notification daemon (dunst) on the test's own bus and display. Nothing that it shows goes
/// away by itself. Ends with this object.
class NotificationDaemon
{
public:
    /// How the daemon announces and treats bodies.
    enum class Bodies { markup, plain };

    /// @p bus and @p display outlive the daemon, which isn't started yet.
    NotificationDaemon(PrivateBus &bus, const VirtualDisplay &display,
                       Bodies bodies = Bodies::markup);

    /// Starts it and waits until it owns its name on the bus; false if it doesn't get it.
    [[nodiscard]] bool start();
    /// Ends it and waits until its name is free. It forgets everything that it has shown.
    void stop();
    /// Lets the bus start the daemon when it is called.
    void makeActivatable();

    /// The number of notifications on the display now; nothing if the daemon isn't running.
    [[nodiscard]] std::optional<int> displayedCount();
    /// Clicks the topmost displayed notification.
    void click();
    /// Closes all displayed notifications, and returns all that were ever closed, newest first. A
    /// replaced notification isn't among them: its replacement stands for it.
    [[nodiscard]] QList<ShownNotification> closeAll();

private:
    [[nodiscard]] QStringList command() const;
    QDBusMessage call(const QString &interface, const QString &method,
                      const QVariantList &arguments = {});

    PrivateBus &m_bus;
    QDBusConnection m_connection;
    QString m_display;
    QTemporaryDir m_folder;
    BoundProcess m_daemon;
};

} // namespace ostrel::test
