#include "AccessibilityBus.h"

#include "WaitFor.h"

#include <QDBusConnectionInterface>
#include <QProcessEnvironment>
#include <QUuid>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString launcherService()
{
    return u"org.a11y.Bus"_s;
}

QString registryService()
{
    return u"org.a11y.atspi.Registry"_s;
}

QString addressOn(const QDBusConnection &session)
{
    const QDBusMessage reply = session.call(QDBusMessage::createMethodCall(
        launcherService(), u"/org/a11y/bus"_s, launcherService(), u"GetAddress"_s));
    return reply.arguments().value(0).toString();
}

} // namespace

AccessibilityBus::AccessibilityBus(PrivateBus &session, const VirtualDisplay &display)
    : m_session(session)
    , m_display(display.name())
    , m_connectionName(QUuid::createUuid().toString())
{
}

AccessibilityBus::~AccessibilityBus()
{
    QDBusConnection::disconnectFromBus(m_connectionName);
    // On SIGTERM it also ends its bus, and with that the registry.
    m_launcher.stop();
}

bool AccessibilityBus::start()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, m_display);
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_session.address());
    environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
    environment.insert(u"HOME"_s, m_folder.path());
    environment.insert(u"GSETTINGS_BACKEND"_s, u"memory"_s);
    m_launcher.setProcessEnvironment(environment);
    m_launcher.logTo(m_folder.filePath(u"log"_s));
    m_launcher.start(u"/usr/libexec/at-spi-bus-launcher"_s, {u"--launch-immediately"_s});
    if (!waitFor([&] { return m_session.hasOwner(launcherService()); }))
        return false;

    const QDBusConnection bus =
        QDBusConnection::connectToBus(addressOn(m_session.connect()), m_connectionName);
    return bus.isConnected() && bus.interface()->startService(registryService()).isValid();
}

std::optional<AccessibleNode> AccessibilityBus::program(qint64 processId)
{
    const QDBusConnection bus(m_connectionName);
    const AccessibleNode registry(bus, registryService(), u"/org/a11y/atspi/accessible/root"_s);
    const auto programs = registry.children();
    const auto found = std::ranges::find_if(programs, [&](const AccessibleNode &program) {
        return bus.interface()->servicePid(program.service()).value() == processId;
    });
    return found == programs.cend() ? std::nullopt : std::optional(*found);
}

} // namespace ostrel::test
