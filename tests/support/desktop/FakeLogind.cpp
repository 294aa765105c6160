#include "FakeLogind.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace ostrel::test {

namespace {

QString logindService()
{
    return QStringLiteral("org.freedesktop.login1");
}

} // namespace

FakeLogind::FakeLogind(PrivateBus &bus)
    : m_connection(bus.connect())
    , m_hasName(m_connection.registerService(logindService()))
{
}

FakeLogind::~FakeLogind()
{
    m_connection.unregisterService(logindService());
}

void FakeLogind::announceSleep()
{
    prepareForSleep(true);
}

void FakeLogind::announceWake()
{
    prepareForSleep(false);
}

void FakeLogind::prepareForSleep(bool isGoingToSleep)
{
    QDBusMessage signal = QDBusMessage::createSignal(
        QStringLiteral("/org/freedesktop/login1"), QStringLiteral("org.freedesktop.login1.Manager"),
        QStringLiteral("PrepareForSleep"));
    signal.setArguments({isGoingToSleep});
    m_connection.send(signal);
    // The bus answers a connection only after what that has sent before.
    (void)m_connection.interface()->registeredServiceNames();
}

} // namespace ostrel::test
