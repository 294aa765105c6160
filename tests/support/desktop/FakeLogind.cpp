#include "FakeLogind.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString logindService()
{
    return u"org.freedesktop.login1"_s;
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
        u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s);
    signal.setArguments({isGoingToSleep});
    m_connection.send(signal);
    // The bus answers a connection only after handling what the connection has sent before.
    (void)m_connection.interface()->registeredServiceNames();
}

} // namespace ostrel::test
