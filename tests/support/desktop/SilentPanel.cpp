#include "SilentPanel.h"

using namespace Qt::StringLiterals;

namespace ostrel::test {

SilentPanel::SilentPanel(PrivateBus &bus)
    : m_connection(bus.connect())
{
    m_connection.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath);
    m_connection.registerService(u"org.kde.StatusNotifierWatcher"_s);
}

SilentPanel::~SilentPanel()
{
    // Closed by itself, a connection sometimes leaks its last message: it ends with its bus.
    m_connection.unregisterService(u"org.kde.StatusNotifierWatcher"_s);
    m_connection.unregisterObject(u"/"_s, QDBusConnection::UnregisterTree);
    recover();
}

void SilentPanel::recover()
{
    m_isHanging = false;
    for (const QDBusMessage &call : m_calls)
        m_connection.send(call.createErrorReply(QDBusError::UnknownMethod, QString()));
}

QString SilentPanel::introspect(const QString &) const
{
    return {};
}

bool SilentPanel::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    m_calls += message;
    return m_isHanging;
}

} // namespace ostrel::test
