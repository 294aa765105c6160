#include "FreedesktopStatusBarHost.h"

namespace ostrel {

FreedesktopStatusBarHost::FreedesktopStatusBarHost(QObject *parent)
    : StatusBarHost(parent)
    , m_host(QStringLiteral("org.kde.StatusNotifierWatcher"))
{
    connect(&m_host, &NameOwner::changed, this, &FreedesktopStatusBarHost::noteHost);
}

void FreedesktopStatusBarHost::follow(const QDBusConnection &bus)
{
    m_bus = bus;
    m_host.follow(bus);
}

bool FreedesktopStatusBarHost::isAwaited() const
{
    return m_bus && m_bus->isConnected() && !m_isThere;
}

void FreedesktopStatusBarHost::noteHost()
{
    const bool wasThere = m_isThere;
    m_isThere = !m_host.uniqueName().isEmpty();
    if (m_isThere && !wasThere)
        Q_EMIT appeared();
}

QString FreedesktopStatusBarHost::menuText(const QString &text) const
{
    // On the bus an underscore marks a key, and two are one to read. The toolkit leaves those of a
    // text alone, and makes one of the first ampersand; the ampersand after it is the one to read.
    // Some hosts undo twice what has a mark, so that there no underscore could be read: it makes
    // way for the low macron, which looks like it.
    const bool hasMark = text.contains(u'&');
    QString written = text;
    written.replace(QStringLiteral("_"), hasMark ? QStringLiteral("\u02CD") : QStringLiteral("__"));
    if (hasMark)
        written.insert(written.indexOf(u'&'), u'&');
    return written;
}

bool FreedesktopStatusBarHost::hasOurPalette() const
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    return desktops.contains(QStringLiteral("KDE")) || desktops.contains(QStringLiteral("LXQt"));
}

} // namespace ostrel
