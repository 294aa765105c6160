#include "FreedesktopStatusBarHost.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace ostrel {

namespace {

QString watcherService()
{
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}

} // namespace

FreedesktopStatusBarHost::FreedesktopStatusBarHost(const QDBusConnection &bus, QObject *parent)
    : StatusBarHost(parent)
    , m_bus(bus)
{
    if (!m_bus.isConnected())
        return;
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &owner) { noteHost(owner); });
    m_watcher.setConnection(m_bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcher.addWatchedService(watcherService());
    findHost();
}

bool FreedesktopStatusBarHost::isAwaited() const
{
    return m_bus.isConnected() && !m_isThere;
}

void FreedesktopStatusBarHost::findHost()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
    question.setArguments({watcherService()});
    auto *answer = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QString> owner = *answer;
        if (owner.isValid())
            noteHost(owner.value());
        answer->deleteLater();
    });
}

void FreedesktopStatusBarHost::noteHost(const QString &owner)
{
    const bool wasThere = m_isThere;
    m_isThere = !owner.isEmpty();
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
