#pragma once

#include "BoundProcess.h"
#include "PrivateBus.h"
#include "VirtualDisplay.h"

#include <QList>
#include <QString>
#include <QTemporaryDir>

#include <optional>

namespace ostrel::test {

/// What a real notification daemon shows.
struct ShownNotification
{
    enum class Urgency { low, normal, critical };

    uint id = 0;
    QString application;
    Urgency urgency = Urgency::normal;
    QString title; ///< As it was sent.
    QString body;  ///< As a reader sees it, once markup has had its effect.

    bool operator==(const ShownNotification &) const = default;
};

/// A real notification daemon (dunst) on a bus and a display of the test's own. Nothing that it
/// shows goes away by itself. Ends with this object.
class NotificationDaemon
{
public:
    /// What the daemon announces, and does, about bodies.
    enum class Bodies { markup, plain };

    /// @p bus and @p display outlive the daemon, which isn't started yet.
    NotificationDaemon(PrivateBus &bus, const VirtualDisplay &display,
                       Bodies bodies = Bodies::markup);

    /// Starts it and waits until it has its name on the bus; false where it doesn't get it.
    [[nodiscard]] bool start();
    /// Ends it and waits until its name is free. It forgets all that it has shown.
    void stop();
    /// Leaves it to the bus to start the daemon, when somebody calls it.
    void makeActivatable();

    /// How many are on the display at the moment; nothing where the daemon isn't there.
    [[nodiscard]] std::optional<int> displayedCount();
    /// Closes what is displayed, and returns all that was ever closed, newest first. One that was
    /// replaced isn't among them: it is the one that replaced it.
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
