#include "FreedesktopStatusBarHost.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <limits>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString watcherName()
{
    return u"org.kde.StatusNotifierWatcher"_s;
}

/// The bus library's value for "no time-out", in milliseconds.
constexpr int withoutTimeout = std::numeric_limits<int>::max();

} // namespace

FreedesktopStatusBarHost::FreedesktopStatusBarHost(QObject *parent)
    : StatusBarHost(parent)
    , m_host(watcherName())
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

bool FreedesktopStatusBarHost::isSilent() const
{
    return isAwaited() && !m_host.uniqueName().isEmpty();
}

void FreedesktopStatusBarHost::noteHost()
{
    m_isThere = false;
    if (m_host.uniqueName().isEmpty())
        Q_EMIT disappeared();
    else
        askHost();
}

/// Asks asynchronously what the toolkit will ask. Any answer will do.
void FreedesktopStatusBarHost::askHost()
{
    const QString host = m_host.uniqueName();
    QDBusMessage question = QDBusMessage::createMethodCall(
        host, u"/StatusNotifierWatcher"_s, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setArguments({watcherName(), u"IsStatusNotifierHostRegistered"_s});
    auto *answer = new QDBusPendingCallWatcher(m_bus->asyncCall(question, withoutTimeout), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, host] {
        noteAnswer(host);
        answer->deleteLater();
    });
}

void FreedesktopStatusBarHost::noteAnswer(const QString &host)
{
    if (m_host.uniqueName() != host || m_isThere)
        return;
    m_isThere = true;
    Q_EMIT appeared();
}

QString FreedesktopStatusBarHost::menuText(const QString &text) const
{
    // On the bus, an underscore marks a key, and two show one underscore. The toolkit doesn't
    // escape those in a text, and turns the first ampersand into one; the ampersand after it is the
    // one that is shown. Some hosts unescape a text with a mark twice, so that no underscore would
    // be shown: it is replaced by the low macron, which looks like it.
    const bool hasMark = text.contains(u'&');
    QString written = text;
    written.replace(u"_"_s, hasMark ? u"\u02CD"_s : u"__"_s);
    if (hasMark)
        written.insert(written.indexOf(u'&'), u'&');
    return written;
}

bool FreedesktopStatusBarHost::hasOurPalette() const
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    return desktops.contains(u"KDE"_s) || desktops.contains(u"LXQt"_s);
}

} // namespace ostrel
