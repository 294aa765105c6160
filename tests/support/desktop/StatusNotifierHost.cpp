#include "StatusNotifierHost.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QEventLoop>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString watcherPath()
{
    return u"/StatusNotifierWatcher"_s;
}

QString watcherService()
{
    return u"org.kde.StatusNotifierWatcher"_s;
}

QString itemInterface()
{
    return u"org.kde.StatusNotifierItem"_s;
}

QString menuInterface()
{
    return u"com.canonical.dbusmenu"_s;
}

/// The label as it is shown, once its underscores have been interpreted: one marks a key, two stand
/// for one.
QString readableLabel(const QString &label)
{
    QString text;
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label[i] == u'_' && ++i == label.size())
            break;
        text += label[i];
    }
    return text;
}

ShownEntry entryFrom(int id, const QVariantMap &properties)
{
    const QString label = readableLabel(properties.value(u"label"_s).toString());
    return {.id = id,
            .text = label.section(u'\t', 0, 0),
            .trailingText = label.section(u'\t', 1),
            .isEnabled = properties.value(u"enabled"_s, true).toBool(),
            .isSeparator = properties.value(u"type"_s) == u"separator"_s,
            .icon = properties.value(u"icon-data"_s).toByteArray()};
}

/// A layout is a number, properties and child layouts; here, entries have no children.
QList<ShownEntry> childrenOf(const QDBusArgument &layout)
{
    int id = 0;
    QVariantMap properties;
    QList<ShownEntry> children;
    layout.beginStructure();
    layout >> id >> properties;
    layout.beginArray();
    while (!layout.atEnd()) {
        QDBusVariant child;
        layout >> child;
        const auto structure = child.variant().value<QDBusArgument>();
        structure.beginStructure();
        structure >> id >> properties;
        structure.endStructure();
        if (properties.value(u"visible"_s, true).toBool())
            children += entryFrom(id, properties);
    }
    layout.endArray();
    layout.endStructure();
    return children;
}

QString lineOf(const ShownEntry &entry)
{
    if (entry.isSeparator)
        return u"-"_s;
    const QString line =
        entry.trailingText.isEmpty() ? entry.text : entry.text + u'|' + entry.trailingText;
    return entry.isEnabled ? line : u'[' + line + u']';
}

} // namespace

StatusNotifierHost::StatusNotifierHost(PrivateBus &bus)
    : m_connection(bus.connect())
{
    m_itemWatcher.setConnection(m_connection);
    m_itemWatcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&m_itemWatcher, &QDBusServiceWatcher::serviceUnregistered, this,
            [this](const QString &service) {
                if (m_item == service)
                    m_item.clear();
            });
    m_connection.registerObject(watcherPath(), this,
                                QDBusConnection::ExportAllSlots |
                                    QDBusConnection::ExportAllProperties);
    m_connection.registerService(watcherService());
}

StatusNotifierHost::~StatusNotifierHost()
{
    m_connection.unregisterObject(watcherPath());
    QDBusConnection::disconnectFromBus(m_connection.name());
}

QStringList StatusNotifierHost::registeredItems() const
{
    return hasItem() ? QStringList(m_item) : QStringList();
}

void StatusNotifierHost::RegisterStatusNotifierItem(const QString &)
{
    m_item = message().service();
    m_itemWatcher.setWatchedServices({m_item});
    const auto listen = [this](const char *signal, const char *slot) {
        m_connection.connect(m_item, QString(), menuInterface(), QString::fromLatin1(signal), this,
                             slot);
    };
    listen("LayoutUpdated", SLOT(countLayoutChange()));
    listen("ItemsPropertiesUpdated", SLOT(countEntryChange()));
}

QString StatusNotifierHost::itemText(const QString &property)
{
    return itemProperty(property).toString();
}

QList<ShownPixmap> StatusNotifierHost::itemPixmaps()
{
    const auto pixmaps = itemProperty(u"IconPixmap"_s).value<QDBusArgument>();
    QList<ShownPixmap> shown;
    pixmaps.beginArray();
    while (!pixmaps.atEnd()) {
        ShownPixmap pixmap;
        pixmaps.beginStructure();
        pixmaps >> pixmap.width >> pixmap.height >> pixmap.argb;
        pixmaps.endStructure();
        shown += pixmap;
    }
    pixmaps.endArray();
    return shown;
}

QList<ShownEntry> StatusNotifierHost::entries()
{
    constexpr int root = 0;
    constexpr int allLevels = -1;
    const QDBusMessage reply =
        call(menuPath(), menuInterface(), u"GetLayout"_s, {root, allLevels, QStringList()});
    return reply.arguments().size() == 2 ? childrenOf(reply.arguments()[1].value<QDBusArgument>())
                                         : QList<ShownEntry>();
}

QStringList StatusNotifierHost::lines()
{
    QStringList lines;
    for (const ShownEntry &entry : entries())
        lines += lineOf(entry);
    return lines;
}

bool StatusNotifierHost::choose(const QString &text)
{
    const auto shown = entries();
    const auto entry =
        std::ranges::find_if(shown, [&](const ShownEntry &each) { return each.text == text; });
    if (entry == shown.end())
        return false;
    const QDBusMessage reply =
        call(menuPath(), menuInterface(), u"Event"_s,
             {entry->id, u"clicked"_s, QVariant::fromValue(QDBusVariant(QString())),
              QVariant::fromValue(0U)});
    return reply.type() == QDBusMessage::ReplyMessage;
}

void StatusNotifierHost::passToken(const QByteArray &token)
{
    call(u"/StatusNotifierItem"_s, itemInterface(), u"ProvideXdgActivationToken"_s,
         {QString::fromLatin1(token)});
}

void StatusNotifierHost::activateItem()
{
    call(u"/StatusNotifierItem"_s, itemInterface(), u"Activate"_s, {0, 0});
}

QVariant StatusNotifierHost::itemProperty(const QString &name)
{
    const QDBusMessage reply = call(u"/StatusNotifierItem"_s, u"org.freedesktop.DBus.Properties"_s,
                                    u"Get"_s, {itemInterface(), name});
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QString StatusNotifierHost::menuPath()
{
    return itemProperty(u"Menu"_s).value<QDBusObjectPath>().path();
}

QDBusMessage StatusNotifierHost::call(const QString &path, const QString &interface,
                                      const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_item, path, interface, method);
    message.setArguments(arguments);
    // Not QDBus::BlockWithGui: that waits forever if the answer comes after it looks for one and
    // before it waits. A watcher also reports an answer that was there before it.
    const QDBusPendingCallWatcher answer(m_connection.asyncCall(message));
    QEventLoop loop;
    connect(&answer, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return answer.reply();
}

} // namespace ostrel::test
