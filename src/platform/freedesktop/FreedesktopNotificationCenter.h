#pragma once

#include "NotificationCenter.h"
#include "SessionBus.h"

#include <QDBusMessage>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>

#include <chrono>

class QDBusPendingCallWatcher;

namespace ostrel {

/// Shows notifications through the desktop's daemon, `org.freedesktop.Notifications`.
///
/// Never waits for the daemon: while it is thinking about a notification, newer ones of the same
/// identifier wait, and only the newest is sent. What the daemon refuses, or doesn't answer within
/// the patience, is dropped. Without a bus everything is.
class FreedesktopNotificationCenter final : public QObject, public NotificationCenter
{
    Q_OBJECT

public:
    /// Starting a daemon counts as part of its answer.
    static constexpr std::chrono::milliseconds defaultPatience{25'000};

    explicit FreedesktopNotificationCenter(const QDBusConnection &bus = sessionBus(),
                                           std::chrono::milliseconds patience = defaultPatience,
                                           QObject *parent = nullptr);

    void requestAuthorization() override {}
    void add(const NotificationRequest &request) override;

private:
    /// Daemons differ in whether a body is markup, and only the running one can tell.
    enum class BodyFormat { unknown, asked, plain, markup };

    [[nodiscard]] QDBusPendingCallWatcher *call(const QDBusMessage &message);
    void askForBodyFormat();
    void learnBodyFormat(const QDBusMessage &reply);
    void sendWaiting();
    void send(const NotificationRequest &request);
    void finishSending(const QString &identifier, const QDBusMessage &reply);
    void changeDaemon(const QString &owner);

    QDBusConnection m_bus;
    std::chrono::milliseconds m_patience;
    BodyFormat m_bodyFormat = BodyFormat::unknown;
    bool m_hasDaemonChanged = false;      ///< Since the body's format was asked for.
    QString m_daemon;                     ///< The unique name of the daemon that made the ids.
    QHash<QString, uint> m_ids;           ///< By identifier, as the daemon gave them.
    QSet<QString> m_underWay;             ///< The identifiers whose notification is being sent.
    QList<NotificationRequest> m_waiting; ///< One for each identifier at most, oldest first.
};

} // namespace ostrel
