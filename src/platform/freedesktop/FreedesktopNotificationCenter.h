#pragma once

#include "NotificationCenter.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QUuid>

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

private Q_SLOTS:
    // Called with the daemon's signals; the arguments are the protocol's.
    void takeToken(uint id, const QString &token);
    void takeAction(uint id, const QString &action);

private:
    /// What the running daemon can do, which only it can tell.
    struct Capabilities
    {
        bool takesMarkup = false; ///< A body is markup, and not plain text.
        bool takesActions = false;
    };
    enum class Knowledge { none, asked, complete };
    /// A notification that the daemon has taken.
    struct Posted
    {
        uint id = 0; ///< The daemon's.
        QUuid monitorId;
    };
    struct ActivationToken
    {
        uint id = 0; ///< The notification's.
        QString text;
    };
    struct Click
    {
        uint id = 0; ///< The notification's.
        QByteArray token;
    };

    [[nodiscard]] bool isConnected() const { return m_bus && m_bus->isConnected(); }
    [[nodiscard]] QDBusPendingCallWatcher *call(const QDBusMessage &message);
    void askForCapabilities();
    void learnCapabilities(const QDBusMessage &reply);
    void sendWaiting();
    void send(const NotificationRequest &request);
    void finishSending(const NotificationRequest &request, const QDBusMessage &reply);
    void changeDaemon(const QString &owner);
    void followClicks();
    /// False if the notification isn't known as one of ours.
    [[nodiscard]] bool pass(const Click &click);

    std::optional<QDBusConnection> m_bus;
    bool m_isBusAwaited = false;
    std::chrono::milliseconds m_patience;
    Knowledge m_knowledge = Knowledge::none;
    Capabilities m_capabilities;          ///< If they are known completely.
    bool m_hasDaemonChanged = false;      ///< Since its capabilities were queried.
    QString m_daemon;                     ///< The unique name of the daemon that assigned the ids.
    QHash<QString, Posted> m_posted;      ///< Keyed by identifier.
    ActivationToken m_token;              ///< For the click that the daemon is going to report.
    QSet<QString> m_underWay;             ///< The identifiers whose notification is being sent.
    Click m_earlyClick;                   ///< Perhaps on one of those, whose id isn't known yet.
    QList<NotificationRequest> m_waiting; ///< At most one for each identifier, oldest first.
};

} // namespace ostrel
