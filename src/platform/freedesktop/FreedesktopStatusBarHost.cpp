#include "FreedesktopStatusBarHost.h"

namespace ostrel {

FreedesktopStatusBarHost::FreedesktopStatusBarHost(const QDBusConnection &bus, QObject *parent)
    : StatusBarHost(parent)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &StatusBarHost::appeared);
    if (!bus.isConnected())
        return;
    m_watcher.setConnection(bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    m_watcher.addWatchedService(QStringLiteral("org.kde.StatusNotifierWatcher"));
}

QString FreedesktopStatusBarHost::menuText(const QString &text) const
{
    // On the bus an underscore marks a key. The toolkit leaves those of a text alone, and makes one
    // of the first ampersand; the one that follows it then stands for itself, as all others do.
    QString written = text;
    written.replace(QStringLiteral("_"), QStringLiteral("__"));
    const auto firstAmpersand = written.indexOf(u'&');
    if (firstAmpersand >= 0)
        written.insert(firstAmpersand, u'&');
    return written;
}

} // namespace ostrel
