#include "StubPortal.h"

using namespace Qt::StringLiterals;

namespace ostrel::test {

StubPortal::StubPortal(PrivateBus &bus, Behaviour behaviour)
    : m_connection(bus.connect())
    , m_behaviour(behaviour)
{
    m_connection.registerObject(u"/org/freedesktop/portal/desktop"_s, this,
                                QDBusConnection::ExportAllSlots);
    m_connection.registerService(u"org.freedesktop.portal.Desktop"_s);
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
        sendErrorReply(u"org.freedesktop.portal.Error.NotAllowed"_s, u"not now"_s);
    return QDBusObjectPath(u"/org/freedesktop/portal/desktop/request/1"_s);
}

} // namespace ostrel::test
