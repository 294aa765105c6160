#include "FocusListener.h"

using namespace Qt::StringLiterals;

namespace ostrel::test {

FocusListener::FocusListener(const QDBusConnection &bus)
    : m_bus(bus)
{
    m_bus.connect({}, {}, u"org.a11y.atspi.Event.Object"_s, u"StateChanged"_s, this,
                  SLOT(stateChanged(QDBusMessage)));
    QDBusMessage interest =
        QDBusMessage::createMethodCall(u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/registry"_s,
                                       u"org.a11y.atspi.Registry"_s, u"RegisterEvent"_s);
    interest.setArguments({u"object:state-changed:focused"_s});
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
    if (arguments.value(0).toString() == u"focused"_s && arguments.value(1).toInt() == 1)
        m_heard.append({m_bus, event.service(), event.path()});
}

} // namespace ostrel::test
