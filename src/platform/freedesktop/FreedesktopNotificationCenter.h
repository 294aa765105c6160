#pragma once

#include "NotificationCenter.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>

#include <chrono>
#include <optional>

class QDBusPendingCallWatcher;

namespace ostrel {

/// Shows notifications through the desktop's daemon, `org.freedesktop.Notifications`.
///
/// Never waits for the daemon: while it processes a notification, newer ones with the same
/// identifier wait, and only the newest is sent. A notification that the daemon refuses, or doesn't
/// answer within the patience, is dropped. Without a bus all are.
class FreedesktopNotificationCenter final : public QObject, public NotificationCenter
{
    Q_OBJECT

public:
    /// Includes the time to start a daemon.
    static constexpr std::chrono::milliseconds defaultPatience{25'000};

    explicit FreedesktopNotificationCenter(std::chrono::milliseconds patience = defaultPatience,
                                           QObject *parent = nullptr);

    /// From now on, holds notifications back instead of dropping them until there is a bus.
    void awaitBus() { m_isBusAwaited = true; }
    /// @p bus must be connected. Call at most once.
    void follow(const QDBusConnection &bus);

    void requestAuthorization() override {}
    void add(const NotificationRequest &request) override;

private:
    /// Daemons differ in whether a body is markup, and only the running one can tell.
    enum class BodyFormat { unknown, asked, plain, markup };

    [[nodiscard]] bool isConnected() const { return m_bus && m_bus->isConnected(); }
    [[nodiscard]] QDBusPendingCallWatcher *call(const QDBusMessage &message);
    void askForBodyFormat();
    void learnBodyFormat(const QDBusMessage &reply);
    void sendWaiting();
    void send(const NotificationRequest &request);
    void finishSending(const QString &identifier, const QDBusMessage &reply);
    void changeDaemon(const QString &owner);

    std::optional<QDBusConnection> m_bus;
    bool m_isBusAwaited = false;
    std::chrono::milliseconds m_patience;
    BodyFormat m_bodyFormat = BodyFormat::unknown;
    bool m_hasDaemonChanged = false;      ///< Since the body's format was queried.
    QString m_daemon;                     ///< The unique name of the daemon that assigned the ids.
    QHash<QString, uint> m_ids;           ///< The daemon's ids, keyed by identifier.
    QSet<QString> m_underWay;             ///< The identifiers whose notification is being sent.
    QList<NotificationRequest> m_waiting; ///< At most one for each identifier, oldest first.
};

} // namespace ostrel
