#include "StubPortal.h"

namespace ostrel::test {

StubPortal::StubPortal(PrivateBus &bus, Behaviour behaviour)
    : m_connection(bus.connect())
    , m_behaviour(behaviour)
{
    m_connection.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                QDBusConnection::ExportAllSlots);
    m_connection.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
}

StubPortal::~StubPortal()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
}

QDBusObjectPath StubPortal::OpenURI(const QString &, const QString &address, const QVariantMap &)
{
    m_addresses.append(address);
    setDelayedReply(m_behaviour == Behaviour::hangs);
    if (m_behaviour == Behaviour::refuses)
        sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotAllowed"),
                       QStringLiteral("not now"));
    return QDBusObjectPath(QStringLiteral("/org/freedesktop/portal/desktop/request/1"));
}

} // namespace ostrel::test
