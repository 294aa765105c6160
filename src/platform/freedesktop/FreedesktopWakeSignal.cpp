#include "FreedesktopWakeSignal.h"

namespace ostrel {

FreedesktopWakeSignal::FreedesktopWakeSignal(const QDBusConnection &bus, QObject *parent)
    : WakeSignal(parent)
    , m_bus(bus)
{
    if (!m_bus.isConnected())
        return;
    m_bus.connect(QStringLiteral("org.freedesktop.login1"),
                  QStringLiteral("/org/freedesktop/login1"),
                  QStringLiteral("org.freedesktop.login1.Manager"),
                  QStringLiteral("PrepareForSleep"), this, SLOT(prepareForSleep(bool)));
}

void FreedesktopWakeSignal::prepareForSleep(bool isGoingToSleep)
{
    if (isGoingToSleep)
        Q_EMIT willSleep();
    else
        Q_EMIT didWake();
}

} // namespace ostrel
