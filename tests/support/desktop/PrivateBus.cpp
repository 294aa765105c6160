#include "PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>
#include <QUuid>

#include <csignal>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

const char *policyOf(PrivateBus::Kind kind)
{
    return kind == PrivateBus::Kind::session
               ? R"(<allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/>)"
               : R"(<deny own="*"/><deny send_type="method_call"/>
    <allow send_type="signal"/><allow send_type="method_return"/><allow send_type="error"/>
    <allow receive_type="signal"/><allow receive_type="method_call"/>
    <allow receive_type="method_return"/><allow receive_type="error"/>
    <allow send_destination="org.freedesktop.DBus"/>
    <allow own="org.freedesktop.login1"/><allow send_destination="org.freedesktop.login1"/>
    <allow own="org.freedesktop.NetworkManager"/>
    <allow send_destination="org.freedesktop.NetworkManager"/>)";
}

void write(const QString &path, const QString &text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text.toUtf8());
}

} // namespace

PrivateBus::PrivateBus(Kind kind)
{
    QDir(m_folder.path()).mkdir(u"services"_s);
    writeConfiguration(kind);
    m_daemon.logTo(m_folder.filePath(u"log"_s));
    m_daemon.start(u"dbus-daemon"_s, {u"--nofork"_s, u"--print-address"_s, u"--config-file"_s,
                                      m_folder.filePath(u"bus.conf"_s)});
    m_address = QString::fromUtf8(m_daemon.nextLine());
}

PrivateBus::~PrivateBus()
{
    thaw();
    for (const QString &name : m_connections)
        QDBusConnection::disconnectFromBus(name);
}

void PrivateBus::writeConfiguration(Kind kind) const
{
    const auto text = uR"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>%1</type>
  <listen>unix:path=%2/bus</listen>
  <auth>EXTERNAL</auth>
  <servicedir>%2/services</servicedir>
  <policy context="default">
    <allow user="*"/>
    %3
  </policy>
</busconfig>
)"_s;
    const auto type = kind == Kind::session ? u"session"_s : u"system"_s;
    write(m_folder.filePath(u"bus.conf"_s),
          text.arg(type, m_folder.path(), QString::fromUtf8(policyOf(kind))));
}

QDBusConnection PrivateBus::connect()
{
    m_connections.append(QUuid::createUuid().toString());
    return QDBusConnection::connectToBus(m_address, m_connections.last());
}

bool PrivateBus::hasOwner(const QString &name)
{
    const QDBusConnection own =
        m_connections.isEmpty() ? connect() : QDBusConnection(m_connections.first());
    return own.interface()->isServiceRegistered(name);
}

void PrivateBus::makeActivatable(const QString &name, const QString &command)
{
    const auto text = u"[D-BUS Service]\nName=%1\nExec=%2\n"_s;
    write(m_folder.filePath(u"services/%1.service"_s.arg(name)), text.arg(name, command));
    connect().interface()->call(u"ReloadConfig"_s);
}

void PrivateBus::freeze()
{
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP);
}

void PrivateBus::thaw()
{
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT);
}

void PrivateBus::stop()
{
    m_daemon.stop();
}

} // namespace ostrel::test
