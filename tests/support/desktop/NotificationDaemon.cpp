#include "NotificationDaemon.h"

#include "WaitFor.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QFile>
#include <QStandardPaths>
#include <QXmlStreamReader>

#include <algorithm>

namespace ostrel::test {

namespace {

QString daemonService()
{
    return QStringLiteral("org.freedesktop.Notifications");
}

/// The daemon's history tells of a notification's text alone, so the format puts the urgency in.
QString configuration(NotificationDaemon::Bodies bodies)
{
    const auto text = QStringLiteral(R"([global]
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
)");
    const bool isMarkup = bodies == NotificationDaemon::Bodies::markup;
    return text.arg(isMarkup ? QStringLiteral("full") : QStringLiteral("no"));
}

/// What is left of @p markup (Pango's) once it is laid out.
QString readableText(const QString &markup)
{
    QXmlStreamReader reader(QStringLiteral("<text>%1</text>").arg(markup));
    QString text;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::Characters)
            text += reader.text();
    }
    return reader.hasError() ? QStringLiteral("not well-formed: ") + markup : text;
}

ShownNotification shownFrom(const QVariantMap &entry)
{
    const QString message = entry.value(QStringLiteral("message")).toString();
    const int urgency = message.left(1).toInt();
    return {.id = entry.value(QStringLiteral("id")).toUInt(),
            .application = entry.value(QStringLiteral("appname")).toString(),
            .urgency = static_cast<ShownNotification::Urgency>(urgency),
            .title = entry.value(QStringLiteral("summary")).toString(),
            .body = readableText(message.section(u'\n', 1))};
}

} // namespace

NotificationDaemon::NotificationDaemon(PrivateBus &bus, const VirtualDisplay &display,
                                       Bodies bodies)
    : m_bus(bus)
    , m_connection(bus.connect())
    , m_display(display.name())
{
    QFile file(m_folder.filePath(QStringLiteral("dunstrc")));
    if (file.open(QIODevice::WriteOnly))
        file.write(configuration(bodies).toUtf8());
}

bool NotificationDaemon::start()
{
    const QStringList words = command();
    m_daemon.logTo(m_folder.filePath(QStringLiteral("log")));
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
    const QDBusMessage reply =
        call(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
             {QStringLiteral("org.dunstproject.cmd0"), QStringLiteral("displayedLength")});
    if (reply.type() != QDBusMessage::ReplyMessage)
        return std::nullopt;
    return reply.arguments().value(0).value<QDBusVariant>().variant().toInt();
}

QList<ShownNotification> NotificationDaemon::closeAll()
{
    const auto interface = QStringLiteral("org.dunstproject.cmd0");
    call(interface, QStringLiteral("NotificationCloseAll"));
    const QDBusMessage reply = call(interface, QStringLiteral("NotificationListHistory"));
    const auto entries =
        qdbus_cast<QList<QVariantMap>>(reply.arguments().value(0).value<QDBusArgument>());
    QList<ShownNotification> shown;
    std::ranges::transform(entries, std::back_inserter(shown), shownFrom);
    return shown;
}

QStringList NotificationDaemon::command() const
{
    return {QStringLiteral("/usr/bin/env"),
            QStringLiteral("DISPLAY=") + m_display,
            QStringLiteral("DBUS_SESSION_BUS_ADDRESS=") + m_bus.address(),
            QStringLiteral("HOME=") + m_folder.path(),
            QStringLiteral("XDG_CONFIG_HOME=") + m_folder.path(),
            QStandardPaths::findExecutable(QStringLiteral("dunst")),
            QStringLiteral("-conf"),
            m_folder.filePath(QStringLiteral("dunstrc"))};
}

QDBusMessage NotificationDaemon::call(const QString &interface, const QString &method,
                                      const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        daemonService(), QStringLiteral("/org/freedesktop/Notifications"), interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return m_connection.call(message);
}

} // namespace ostrel::test
