#include "AccessibleNode.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace ostrel::test {

namespace {

constexpr char accessible[] = "org.a11y.atspi.Accessible";
constexpr char action[] = "org.a11y.atspi.Action";
constexpr char component[] = "org.a11y.atspi.Component";
constexpr char readableText[] = "org.a11y.atspi.Text";
constexpr char valued[] = "org.a11y.atspi.Value";

/// Relative to the display, not to the window.
constexpr uint onScreen = 0;
constexpr int callTimeout = 10000;

} // namespace

AccessibleNode::AccessibleNode(const QDBusConnection &bus, const QString &service,
                               const QString &path)
    : m_bus(bus)
    , m_service(service)
    , m_path(path)
{
}

AccessibleRole AccessibleNode::role() const
{
    return static_cast<AccessibleRole>(call(accessible, "GetRole").toUInt());
}

QString AccessibleNode::roleName() const
{
    return call(accessible, "GetRoleName").toString();
}

QString AccessibleNode::name() const
{
    return property(accessible, "Name").toString();
}

QString AccessibleNode::description() const
{
    return property(accessible, "Description").toString();
}

quint64 AccessibleNode::states() const
{
    const auto words = qdbus_cast<QList<uint>>(call(accessible, "GetState"));
    return words.size() == 2 ? quint64(words[1]) << 32 | words[0] : 0;
}

QList<AccessibleNode> AccessibleNode::children() const
{
    const QVariant reply = call(accessible, "GetChildren");
    if (!reply.canConvert<QDBusArgument>())
        return {};
    QList<AccessibleNode> nodes;
    const auto argument = reply.value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        QString service;
        QDBusObjectPath path;
        argument.beginStructure();
        argument >> service >> path;
        argument.endStructure();
        nodes.append({m_bus, service, path.path()});
    }
    argument.endArray();
    return nodes;
}

QRect AccessibleNode::extents() const
{
    const QVariant reply = call(component, "GetExtents", {onScreen});
    if (!reply.canConvert<QDBusArgument>())
        return {};
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    const auto argument = reply.value<QDBusArgument>();
    argument.beginStructure();
    argument >> x >> y >> width >> height;
    argument.endStructure();
    return {x, y, width, height};
}

QStringList AccessibleNode::actions() const
{
    QStringList names;
    const int count = property(action, "NActions").toInt();
    for (int index = 0; index < count; ++index)
        names += call(action, "GetName", {index}).toString();
    return names;
}

bool AccessibleNode::act(const QString &name) const
{
    const auto index = actions().indexOf(name);
    return index >= 0 && call(action, "DoAction", {static_cast<int>(index)}).toBool();
}

QString AccessibleNode::text() const
{
    return call(readableText, "GetText", {0, -1}).toString();
}

std::optional<double> AccessibleNode::value() const
{
    const QVariant current = property(valued, "CurrentValue");
    return current.isValid() ? std::optional(current.toDouble()) : std::nullopt;
}

QVariant AccessibleNode::call(const char *interface, const char *method,
                              const QVariantList &arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        m_service, m_path, QString::fromLatin1(interface), QString::fromLatin1(method));
    message.setArguments(arguments);
    const QDBusMessage reply = m_bus.call(message, QDBus::Block, callTimeout);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
}

QVariant AccessibleNode::property(const char *interface, const char *name) const
{
    return call("org.freedesktop.DBus.Properties", "Get",
                {QString::fromLatin1(interface), QString::fromLatin1(name)})
        .value<QDBusVariant>()
        .variant();
}

} // namespace ostrel::test
