#include "FreedesktopNotificationCenter.h"

#include "ApplicationId.h"

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QStringList>
#include <QVariantMap>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString daemonService()
{
    return u"org.freedesktop.Notifications"_s;
}

/// The `urgency` hint, which daemons expect to be a byte.
uchar urgencyOf(InterruptionLevel level)
{
    constexpr uchar normal = 1;
    constexpr uchar critical = 2;
    return level == InterruptionLevel::timeSensitive ? critical : normal;
}

QVariantMap hintsFor(const NotificationRequest &request)
{
    return {{u"urgency"_s, QVariant::fromValue(urgencyOf(request.level))},
            {u"sound-name"_s, u"message-new-instant"_s},
            {u"desktop-entry"_s, applicationId()}};
}

QString daemonPath()
{
    return u"/org/freedesktop/Notifications"_s;
}

QDBusMessage methodCall(const QString &method)
{
    return QDBusMessage::createMethodCall(daemonService(), daemonPath(), daemonService(), method);
}

/// The name of the action that a click on the notification itself invokes.
QString clickAction()
{
    return u"default"_s;
}

QDBusMessage notifyCall(const NotificationRequest &request, const QString &body,
                        const QStringList &actions, uint replacesId)
{
    constexpr int daemonsOwnExpiry = -1;
    QDBusMessage message = methodCall(u"Notify"_s);
    message.setArguments({u"Ostrel"_s, replacesId, applicationId(), request.title, body, actions,
                          hintsFor(request), daemonsOwnExpiry});
    return message;
}

/// The first argument of @p reply, or a default T if the call failed.
template<typename T>
T firstOf(const QDBusMessage &reply)
{
    const bool isReply = reply.type() == QDBusMessage::ReplyMessage;
    return isReply ? reply.arguments().value(0).value<T>() : T();
}

} // namespace

FreedesktopNotificationCenter::FreedesktopNotificationCenter(std::chrono::milliseconds patience,
                                                             QObject *parent)
    : QObject(parent)
    , m_patience(patience)
{
}

void FreedesktopNotificationCenter::follow(const QDBusConnection &bus)
{
    m_bus = bus;
    m_isBusAwaited = false;
    const auto *watcher = new QDBusServiceWatcher(daemonService(), bus,
                                                  QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(
        watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString &, const QString &, const QString &owner) { changeDaemon(owner); });
    followClicks();
    sendWaiting();
}

void FreedesktopNotificationCenter::add(const NotificationRequest &request)
{
    if (!isConnected() && !m_isBusAwaited)
        return;
    const auto older =
        std::ranges::find(m_waiting, request.identifier, &NotificationRequest::identifier);
    if (older == m_waiting.end())
        m_waiting.append(request);
    else
        *older = request;
    sendWaiting();
}

QDBusPendingCallWatcher *FreedesktopNotificationCenter::call(const QDBusMessage &message)
{
    const auto reply = m_bus->asyncCall(message, static_cast<int>(m_patience.count()));
    auto *watcher = new QDBusPendingCallWatcher(reply, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, watcher, &QObject::deleteLater);
    return watcher;
}

void FreedesktopNotificationCenter::askForCapabilities()
{
    m_knowledge = Knowledge::asked;
    m_hasDaemonChanged = false;
    connect(call(methodCall(u"GetCapabilities"_s)), &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher *call) { learnCapabilities(call->reply()); });
}

void FreedesktopNotificationCenter::learnCapabilities(const QDBusMessage &reply)
{
    const auto names = firstOf<QStringList>(reply);
    m_capabilities = {.takesMarkup = names.contains(u"body-markup"_s),
                      .takesActions = names.contains(u"actions"_s)};
    m_knowledge = Knowledge::complete;
    sendWaiting();
    // Waiting notifications have waited long enough; the next one queries the new daemon.
    if (m_hasDaemonChanged && reply.service() != m_daemon)
        m_knowledge = Knowledge::none;
}

void FreedesktopNotificationCenter::sendWaiting()
{
    if (m_waiting.isEmpty() || !isConnected() || m_knowledge == Knowledge::asked)
        return;
    if (m_knowledge == Knowledge::none)
        return askForCapabilities();
    const auto isUnderWay = [this](const NotificationRequest &request) {
        return m_underWay.contains(request.identifier);
    };
    const auto ready = std::stable_partition(m_waiting.begin(), m_waiting.end(), isUnderWay);
    std::for_each(ready, m_waiting.end(), [this](const auto &request) { send(request); });
    m_waiting.erase(ready, m_waiting.end());
}

void FreedesktopNotificationCenter::send(const NotificationRequest &request)
{
    const QString body = m_capabilities.takesMarkup ? request.body.toHtmlEscaped() : request.body;
    // A daemon that can't show actions may show a dialog instead.
    QStringList actions;
    if (m_capabilities.takesActions)
        actions = {clickAction(), tr("Open Ostrel")};
    m_underWay.insert(request.identifier);
    const uint replacesId = m_posted.value(request.identifier).id;
    connect(
        call(notifyCall(request, body, actions, replacesId)), &QDBusPendingCallWatcher::finished,
        this,
        [this, request](QDBusPendingCallWatcher *call) { finishSending(request, call->reply()); });
}

void FreedesktopNotificationCenter::finishSending(const NotificationRequest &request,
                                                  const QDBusMessage &reply)
{
    m_underWay.remove(request.identifier);
    m_posted.remove(request.identifier);
    // A late answer from a previous daemon is useless for its successor.
    const uint id = firstOf<uint>(reply);
    if (id != 0 && (m_daemon.isEmpty() || m_daemon == reply.service())) {
        m_daemon = reply.service();
        m_posted.insert(request.identifier, {.id = id, .monitorId = request.monitorId});
    }
    if (pass(m_earlyClick) || m_underWay.isEmpty())
        m_earlyClick = {};
    sendWaiting();
}

void FreedesktopNotificationCenter::changeDaemon(const QString &owner)
{
    m_daemon = owner;
    m_posted.clear();
    m_earlyClick = {};
    m_hasDaemonChanged = true;
    if (m_knowledge != Knowledge::asked)
        m_knowledge = Knowledge::none;
}

void FreedesktopNotificationCenter::followClicks()
{
    // Only the name's owner is heard, whoever that is at the time.
    m_bus->connect(daemonService(), daemonPath(), daemonService(), u"ActivationToken"_s, this,
                   SLOT(takeToken(uint, QString)));
    m_bus->connect(daemonService(), daemonPath(), daemonService(), u"ActionInvoked"_s, this,
                   SLOT(takeAction(uint, QString)));
}

void FreedesktopNotificationCenter::takeToken(uint id, const QString &token)
{
    m_token = {.id = id, .text = token};
}

/// Daemons tell every program of every click. One may overtake the answer to the call that posted
/// its notification.
void FreedesktopNotificationCenter::takeAction(uint id, const QString &action)
{
    const auto token = std::exchange(m_token, {});
    if (action != clickAction())
        return;
    const Click click = {.id = id, .token = token.id == id ? token.text.toUtf8() : QByteArray()};
    if (!pass(click) && !m_underWay.isEmpty())
        m_earlyClick = click;
}

bool FreedesktopNotificationCenter::pass(const Click &click)
{
    const auto posted = std::ranges::find(m_posted, click.id, &Posted::id);
    if (posted == m_posted.end())
        return false;
    clicked(posted->monitorId, click.token);
    return true;
}

} // namespace ostrel
