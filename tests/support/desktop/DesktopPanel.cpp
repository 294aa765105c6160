#include "DesktopPanel.h"

#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QSettings>

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

QString watcherService()
{
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}

QString settingsService()
{
    return QStringLiteral("org.xfce.Xfconf");
}

/// The desktop's own way of starting the service that the panel reads its settings from.
QString settingsCommand()
{
    const QSettings file(
        QStringLiteral("/usr/share/dbus-1/services/%1.service").arg(settingsService()),
        QSettings::IniFormat);
    return file.value(QStringLiteral("D-BUS Service/Exec")).toString();
}

QByteArray configuration()
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="30"/>
      <property name="icon-size" type="uint" value="22"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";
}

} // namespace

DesktopPanel::DesktopPanel(PrivateBus &bus, const VirtualDisplay &display)
    : m_bus(bus)
    , m_display(display.name())
{
    const QString folder =
        m_folder.filePath(QStringLiteral("config/xfce4/xfconf/xfce-perchannel-xml"));
    QDir().mkpath(folder);
    QFile file(folder + QStringLiteral("/xfce4-panel.xml"));
    if (file.open(QIODevice::WriteOnly))
        file.write(configuration());
    m_bus.makeActivatable(settingsService(), environment().join(u' ') + u' ' + settingsCommand());
}

bool DesktopPanel::start()
{
    const QStringList words = environment() + QStringList{QStringLiteral("xfce4-panel"),
                                                          QStringLiteral("--disable-wm-check")};
    m_panel.logTo(m_folder.filePath(QStringLiteral("log")));
    m_panel.start(words.first(), words.sliced(1));
    return waitFor([&] { return m_bus.hasOwner(watcherService()); }, 30s);
}

void DesktopPanel::stop()
{
    m_panel.kill();
    m_panel.waitForFinished();
    (void)waitFor([&] { return !m_bus.hasOwner(watcherService()); });
}

QStringList DesktopPanel::environment() const
{
    return {QStringLiteral("/usr/bin/env"),
            QStringLiteral("DISPLAY=") + m_display,
            QStringLiteral("DBUS_SESSION_BUS_ADDRESS=") + m_bus.address(),
            QStringLiteral("HOME=") + m_folder.path(),
            QStringLiteral("XDG_CONFIG_HOME=") + m_folder.filePath(QStringLiteral("config")),
            QStringLiteral("XDG_CACHE_HOME=") + m_folder.filePath(QStringLiteral("cache")),
            QStringLiteral("NO_AT_BRIDGE=1")};
}

} // namespace ostrel::test
