#include "DesktopPanel.h"

#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

QString watcherService()
{
    return u"org.kde.StatusNotifierWatcher"_s;
}

QString settingsService()
{
    return u"org.xfce.Xfconf"_s;
}

/// The desktop's own command for the service that the panel reads its settings from.
QString settingsCommand()
{
    const QSettings file(u"/usr/share/dbus-1/services/%1.service"_s.arg(settingsService()),
                         QSettings::IniFormat);
    return file.value(u"D-BUS Service/Exec"_s).toString();
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
    const QString folder = m_folder.filePath(u"config/xfce4/xfconf/xfce-perchannel-xml"_s);
    QDir().mkpath(folder);
    QFile file(folder + u"/xfce4-panel.xml"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write(configuration());
    m_bus.makeActivatable(settingsService(), environment().join(u' ') + u' ' + settingsCommand());
}

bool DesktopPanel::start()
{
    const QStringList words =
        environment() + QStringList{u"xfce4-panel"_s, u"--disable-wm-check"_s};
    m_panel.logTo(m_folder.filePath(u"log"_s));
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
    return {u"/usr/bin/env"_s,
            u"DISPLAY="_s + m_display,
            u"DBUS_SESSION_BUS_ADDRESS="_s + m_bus.address(),
            u"HOME="_s + m_folder.path(),
            u"XDG_CONFIG_HOME="_s + m_folder.filePath(u"config"_s),
            u"XDG_CACHE_HOME="_s + m_folder.filePath(u"cache"_s),
            u"NO_AT_BRIDGE=1"_s};
}

} // namespace ostrel::test
