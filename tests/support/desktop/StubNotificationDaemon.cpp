#include "StubNotificationDaemon.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString daemonService()
{
    return u"org.freedesktop.Notifications"_s;
}

QString objectPath()
{
    return u"/org/freedesktop/Notifications"_s;
}

} // namespace

StubNotificationDaemon::StubNotificationDaemon(PrivateBus &bus, const QStringList &capabilities)
    : m_connection(bus.connect())
    , m_capabilities(capabilities)
{
    m_connection.registerObject(objectPath(), this, QDBusConnection::ExportAllSlots);
    m_connection.registerService(daemonService());
}

StubNotificationDaemon::~StubNotificationDaemon()
{
    m_connection.unregisterObject(objectPath());
    QDBusConnection::disconnectFromBus(m_connection.name());
}

void StubNotificationDaemon::giveUpName()
{
    m_connection.unregisterService(daemonService());
}

void StubNotificationDaemon::answerHeld()
{
    for (const QDBusMessage &reply : std::exchange(m_held, {}))
        m_connection.send(reply);
}

void StubNotificationDaemon::click(uint id, const QString &action)
{
    announce(u"ActionInvoked"_s, id, action);
}

void StubNotificationDaemon::handOutToken(uint id, const QString &token)
{
    announce(u"ActivationToken"_s, id, token);
}

void StubNotificationDaemon::announce(const QString &signal, uint id, const QString &text)
{
    auto message = QDBusMessage::createSignal(objectPath(), daemonService(), signal);
    message.setArguments({id, text});
    m_connection.send(message);
}

QStringList StubNotificationDaemon::GetCapabilities()
{
    ++m_capabilityCalls;
    behave(m_capabilities);
    return m_capabilities;
}

uint StubNotificationDaemon::Notify(const QString &application, uint replacesId,
                                    const QString &icon, const QString &title, const QString &body,
                                    const QStringList &actions, const QVariantMap &hints,
                                    int expiry)
{
    m_notifications.append({application, replacesId, icon, title, body, actions, hints, expiry});
    const uint id = replacesId != 0 ? replacesId : m_nextId++;
    behave(id);
    return id;
}

void StubNotificationDaemon::behave(const QVariant &answer)
{
    if (m_behaviour == Behaviour::fails)
        return sendErrorReply(QDBusError::Failed, u"not now"_s);
    if (m_behaviour == Behaviour::answers)
        return;
    setDelayedReply(true);
    m_held.append(message().createReply(answer));
}

} // namespace ostrel::test
