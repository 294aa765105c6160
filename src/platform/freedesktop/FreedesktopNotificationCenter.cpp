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

QDBusMessage methodCall(const QString &method)
{
    return QDBusMessage::createMethodCall(daemonService(), u"/org/freedesktop/Notifications"_s,
                                          daemonService(), method);
}

QDBusMessage notifyCall(const NotificationRequest &request, const QString &body, uint replacesId)
{
    constexpr int daemonsOwnExpiry = -1;
    QDBusMessage message = methodCall(u"Notify"_s);
    message.setArguments({u"Ostrel"_s, replacesId, applicationId(), request.title, body,
                          QStringList(), hintsFor(request), daemonsOwnExpiry});
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

void FreedesktopNotificationCenter::askForBodyFormat()
{
    m_bodyFormat = BodyFormat::asked;
    m_hasDaemonChanged = false;
    connect(call(methodCall(u"GetCapabilities"_s)), &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher *call) { learnBodyFormat(call->reply()); });
}

void FreedesktopNotificationCenter::learnBodyFormat(const QDBusMessage &reply)
{
    const bool isMarkup = firstOf<QStringList>(reply).contains(u"body-markup"_s);
    m_bodyFormat = isMarkup ? BodyFormat::markup : BodyFormat::plain;
    sendWaiting();
    // Waiting notifications have waited long enough; the next one queries the new daemon.
    if (m_hasDaemonChanged && reply.service() != m_daemon)
        m_bodyFormat = BodyFormat::unknown;
}

void FreedesktopNotificationCenter::sendWaiting()
{
    if (m_waiting.isEmpty() || !isConnected() || m_bodyFormat == BodyFormat::asked)
        return;
    if (m_bodyFormat == BodyFormat::unknown)
        return askForBodyFormat();
    const auto isUnderWay = [this](const NotificationRequest &request) {
        return m_underWay.contains(request.identifier);
    };
    const auto ready = std::stable_partition(m_waiting.begin(), m_waiting.end(), isUnderWay);
    std::for_each(ready, m_waiting.end(), [this](const auto &request) { send(request); });
    m_waiting.erase(ready, m_waiting.end());
}

void FreedesktopNotificationCenter::send(const NotificationRequest &request)
{
    const QString body =
        m_bodyFormat == BodyFormat::markup ? request.body.toHtmlEscaped() : request.body;
    m_underWay.insert(request.identifier);
    connect(call(notifyCall(request, body, m_ids.value(request.identifier))),
            &QDBusPendingCallWatcher::finished, this,
            [this, identifier = request.identifier](QDBusPendingCallWatcher *call) {
                finishSending(identifier, call->reply());
            });
}

void FreedesktopNotificationCenter::finishSending(const QString &identifier,
                                                  const QDBusMessage &reply)
{
    m_underWay.remove(identifier);
    m_ids.remove(identifier);
    // A late answer from a previous daemon is useless for its successor.
    const uint id = firstOf<uint>(reply);
    if (id != 0 && (m_daemon.isEmpty() || m_daemon == reply.service())) {
        m_daemon = reply.service();
        m_ids.insert(identifier, id);
    }
    sendWaiting();
}

void FreedesktopNotificationCenter::changeDaemon(const QString &owner)
{
    m_daemon = owner;
    m_ids.clear();
    m_hasDaemonChanged = true;
    if (m_bodyFormat != BodyFormat::asked)
        m_bodyFormat = BodyFormat::unknown;
}

} // namespace ostrel
