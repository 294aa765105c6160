#include "FakeNetworkManager.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString networkManager()
{
    return u"org.freedesktop.NetworkManager"_s;
}

QString objectPath()
{
    return u"/org/freedesktop/NetworkManager"_s;
}

bool asksForState(const QDBusMessage &message)
{
    return message.member() == u"Get"_s &&
           message.arguments() == QVariantList{networkManager(), u"State"_s};
}

} // namespace

FakeNetworkManager::FakeNetworkManager(PrivateBus &bus, uint state, Behaviour behaviour)
    : m_connection(bus.connect())
    , m_state(state)
    , m_behaviour(behaviour)
    , m_hasName(m_connection.registerVirtualObject(objectPath(), this) &&
                m_connection.registerService(networkManager()))
{
}

FakeNetworkManager::~FakeNetworkManager()
{
    m_connection.unregisterObject(objectPath());
    m_connection.unregisterService(networkManager());
}

void FakeNetworkManager::changeState(uint state)
{
    m_state = state;
    QDBusMessage signal =
        QDBusMessage::createSignal(objectPath(), networkManager(), u"StateChanged"_s);
    signal.setArguments({state});
    m_connection.send(signal);
    // The bus answers a connection only after handling what the connection has sent before.
    (void)m_connection.interface()->registeredServiceNames();
}

QString FakeNetworkManager::introspect(const QString &) const
{
    return {};
}

bool FakeNetworkManager::handleMessage(const QDBusMessage &message,
                                       const QDBusConnection &connection)
{
    ++m_questions;
    if (m_behaviour == Behaviour::answers && asksForState(message)) {
        const auto answer = QVariant::fromValue(QDBusVariant(m_state));
        connection.send(message.createReply(answer));
    } else if (m_behaviour != Behaviour::hangs) {
        connection.send(message.createErrorReply(QDBusError::Failed, u"not now"_s));
    }
    return true;
}

} // namespace ostrel::test
