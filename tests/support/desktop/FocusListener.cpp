#include "FocusListener.h"

namespace ostrel::test {

FocusListener::FocusListener(const QDBusConnection &bus)
    : m_bus(bus)
{
    m_bus.connect({}, {}, QStringLiteral("org.a11y.atspi.Event.Object"),
                  QStringLiteral("StateChanged"), this, SLOT(stateChanged(QDBusMessage)));
    QDBusMessage interest = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/registry"),
        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("RegisterEvent"));
    interest.setArguments({QStringLiteral("object:state-changed:focused")});
    m_bus.call(interest);
}

QStringList FocusListener::heard() const
{
    QStringList names;
    for (const AccessibleNode &node : m_heard)
        names += node.name();
    return names;
}

void FocusListener::stateChanged(const QDBusMessage &event)
{
    const QVariantList arguments = event.arguments();
    if (arguments.value(0).toString() == QStringLiteral("focused") &&
        arguments.value(1).toInt() == 1)
        m_heard.append({m_bus, event.service(), event.path()});
}

} // namespace ostrel::test
