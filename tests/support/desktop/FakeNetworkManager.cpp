#include "FakeNetworkManager.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>

namespace ostrel::test {

namespace {

QString networkManager()
{
    return QStringLiteral("org.freedesktop.NetworkManager");
}

QString objectPath()
{
    return QStringLiteral("/org/freedesktop/NetworkManager");
}

bool asksForState(const QDBusMessage &message)
{
    return message.member() == QStringLiteral("Get") &&
           message.arguments() == QVariantList{networkManager(), QStringLiteral("State")};
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
        QDBusMessage::createSignal(objectPath(), networkManager(), QStringLiteral("StateChanged"));
    signal.setArguments({state});
    m_connection.send(signal);
    // The bus answers a connection only after what that has sent before.
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
        connection.send(message.createErrorReply(QDBusError::Failed, QStringLiteral("not now")));
    }
    return true;
}

} // namespace ostrel::test
