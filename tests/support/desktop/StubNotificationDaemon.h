#pragma once

#include "PrivateBus.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// A notification daemon that keeps what it receives and behaves as badly as a test wants.
///
/// Lives in the test's own thread: a wait for it without an event loop never ends.
class StubNotificationDaemon : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    enum class Behaviour {
        answers,
        holds, ///< Takes calls but answers them only with answerHeld.
        fails, ///< Answers every call with an error.
    };

    /// One call of Notify, with all its arguments.
    struct Notification
    {
        QString application;
        uint replacesId = 0;
        QString icon;
        QString title;
        QString body;
        QStringList actions;
        QVariantMap hints;
        int expiry = 0;
    };

    /// @p bus outlives it. It leaves the bus when it is destroyed, as a daemon that crashes does.
    explicit StubNotificationDaemon(PrivateBus &bus, const QStringList &capabilities = {u"body"_s});
    ~StubNotificationDaemon() override;

    /// Sets how it treats later calls.
    void setBehaviour(Behaviour behaviour) { m_behaviour = behaviour; }
    /// Leaves its name to a successor, but stays on the bus and can still answer held calls.
    void giveUpName();
    /// Answers the calls that were held, in order.
    void answerHeld();

    /// Tells everyone on the bus that the user has clicked the notification @p id, or chosen
    /// @p action of it.
    void click(uint id, const QString &action = u"default"_s);
    /// Hands out the desktop's activation token for a click that follows.
    void handOutToken(uint id, const QString &token);

    [[nodiscard]] int capabilityCalls() const { return m_capabilityCalls; }
    /// Every call of Notify so far, including failed and held ones.
    [[nodiscard]] const QList<Notification> &notifications() const { return m_notifications; }
    /// The id of the first notification; each later one's id is one higher.
    static constexpr uint firstId = 100;

public Q_SLOTS:
    // Its interface on the bus; the names and arguments are the protocol's.
    QStringList GetCapabilities();
    uint Notify(const QString &application, uint replacesId, const QString &icon,
                const QString &title, const QString &body, const QStringList &actions,
                const QVariantMap &hints, int expiry);

private:
    void announce(const QString &signal, uint id, const QString &text);
    /// Holds the call being handled, or fails it; otherwise leaves @p answer to be returned.
    void behave(const QVariant &answer);

    QDBusConnection m_connection;
    QStringList m_capabilities;
    Behaviour m_behaviour = Behaviour::answers;
    int m_capabilityCalls = 0;
    uint m_nextId = firstId;
    QList<Notification> m_notifications;
    QList<QDBusMessage> m_held; ///< The replies, ready to send.
};

} // namespace ostrel::test
