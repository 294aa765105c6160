#include "NotificationDaemon.h"

#include "WaitFor.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QFile>
#include <QStandardPaths>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString daemonService()
{
    return u"org.freedesktop.Notifications"_s;
}

/// The daemon's history only has a notification's text, so the format puts the urgency into it.
QString configuration(NotificationDaemon::Bodies bodies)
{
    const auto text = uR"([global]
    markup = %1
    history_length = 10000
    notification_limit = 0
    idle_threshold = 0
[urgency_low]
    timeout = 0
    format = "0%s\n%b"
[urgency_normal]
    timeout = 0
    format = "1%s\n%b"
[urgency_critical]
    timeout = 0
    format = "2%s\n%b"
)"_s;
    const bool isMarkup = bodies == NotificationDaemon::Bodies::markup;
    return text.arg(isMarkup ? u"full"_s : u"no"_s);
}

/// The text of @p markup (Pango's) as it is laid out.
QString readableText(const QString &markup)
{
    QXmlStreamReader reader(u"<text>%1</text>"_s.arg(markup));
    QString text;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::Characters)
            text += reader.text();
    }
    return reader.hasError() ? u"not well-formed: "_s + markup : text;
}

ShownNotification shownFrom(const QVariantMap &entry)
{
    const QString message = entry.value(u"message"_s).toString();
    const int urgency = message.left(1).toInt();
    return {.id = entry.value(u"id"_s).toUInt(),
            .application = entry.value(u"appname"_s).toString(),
            .urgency = static_cast<ShownNotification::Urgency>(urgency),
            .title = entry.value(u"summary"_s).toString(),
            .body = readableText(message.section(u'\n', 1))};
}

} // namespace

NotificationDaemon::NotificationDaemon(PrivateBus &bus, const VirtualDisplay &display,
                                       Bodies bodies)
    : m_bus(bus)
    , m_connection(bus.connect())
    , m_display(display.name())
{
    QFile file(m_folder.filePath(u"dunstrc"_s));
    if (file.open(QIODevice::WriteOnly))
        file.write(configuration(bodies).toUtf8());
}

bool NotificationDaemon::start()
{
    const QStringList words = command();
    m_daemon.logTo(m_folder.filePath(u"log"_s));
    m_daemon.start(words.first(), words.sliced(1));
    return waitFor([&] { return m_bus.hasOwner(daemonService()); });
}

void NotificationDaemon::stop()
{
    m_daemon.stop();
    (void)waitFor([&] { return !m_bus.hasOwner(daemonService()); });
}

void NotificationDaemon::makeActivatable()
{
    m_bus.makeActivatable(daemonService(), command().join(u' '));
}

std::optional<int> NotificationDaemon::displayedCount()
{
    if (!m_bus.hasOwner(daemonService()))
        return std::nullopt;
    const QDBusMessage reply = call(u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                                    {u"org.dunstproject.cmd0"_s, u"displayedLength"_s});
    if (reply.type() != QDBusMessage::ReplyMessage)
        return std::nullopt;
    return reply.arguments().value(0).value<QDBusVariant>().variant().toInt();
}

void NotificationDaemon::click()
{
    constexpr uint topmost = 0;
    call(u"org.dunstproject.cmd0"_s, u"NotificationAction"_s, {topmost});
}

QList<ShownNotification> NotificationDaemon::closeAll()
{
    const auto interface = u"org.dunstproject.cmd0"_s;
    call(interface, u"NotificationCloseAll"_s);
    const QDBusMessage reply = call(interface, u"NotificationListHistory"_s);
    const auto entries =
        qdbus_cast<QList<QVariantMap>>(reply.arguments().value(0).value<QDBusArgument>());
    QList<ShownNotification> shown;
    std::ranges::transform(entries, std::back_inserter(shown), shownFrom);
    return shown;
}

QStringList NotificationDaemon::command() const
{
    return {u"/usr/bin/env"_s,
            u"DISPLAY="_s + m_display,
            u"DBUS_SESSION_BUS_ADDRESS="_s + m_bus.address(),
            u"HOME="_s + m_folder.path(),
            u"XDG_CONFIG_HOME="_s + m_folder.path(),
            QStandardPaths::findExecutable(u"dunst"_s),
            u"-conf"_s,
            m_folder.filePath(u"dunstrc"_s)};
}

QDBusMessage NotificationDaemon::call(const QString &interface, const QString &method,
                                      const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        daemonService(), u"/org/freedesktop/Notifications"_s, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return m_connection.call(message);
}

} // namespace ostrel::test
