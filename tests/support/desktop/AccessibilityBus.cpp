#include "AccessibilityBus.h"

#include "WaitFor.h"

#include <QDBusConnectionInterface>
#include <QProcessEnvironment>
#include <QUuid>

#include <algorithm>

namespace ostrel::test {

namespace {

QString launcherService()
{
    return QStringLiteral("org.a11y.Bus");
}

QString registryService()
{
    return QStringLiteral("org.a11y.atspi.Registry");
}

QString addressOn(const QDBusConnection &session)
{
    const QDBusMessage reply = session.call(
        QDBusMessage::createMethodCall(launcherService(), QStringLiteral("/org/a11y/bus"),
                                       launcherService(), QStringLiteral("GetAddress")));
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
    // With SIGTERM it takes its bus along, and with that the registry.
    m_launcher.stop();
}

bool AccessibilityBus::start()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_session.address());
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    environment.insert(QStringLiteral("HOME"), m_folder.path());
    environment.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
    m_launcher.setProcessEnvironment(environment);
    m_launcher.logTo(m_folder.filePath(QStringLiteral("log")));
    m_launcher.start(QStringLiteral("/usr/libexec/at-spi-bus-launcher"),
                     {QStringLiteral("--launch-immediately")});
    if (!waitFor([&] { return m_session.hasOwner(launcherService()); }))
        return false;

    const QDBusConnection bus =
        QDBusConnection::connectToBus(addressOn(m_session.connect()), m_connectionName);
    return bus.isConnected() && bus.interface()->startService(registryService()).isValid();
}

std::optional<AccessibleNode> AccessibilityBus::program(qint64 processId)
{
    const QDBusConnection bus(m_connectionName);
    const AccessibleNode registry(bus, registryService(),
                                  QStringLiteral("/org/a11y/atspi/accessible/root"));
    const auto programs = registry.children();
    const auto found = std::ranges::find_if(programs, [&](const AccessibleNode &program) {
        return bus.interface()->servicePid(program.service()).value() == processId;
    });
    return found == programs.cend() ? std::nullopt : std::optional(*found);
}

} // namespace ostrel::test
