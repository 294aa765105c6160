#include "FreedesktopWakeSignal.h"

namespace ostrel {

FreedesktopWakeSignal::FreedesktopWakeSignal(QObject *parent)
    : WakeSignal(parent)
    , m_logind(QStringLiteral("org.freedesktop.login1"))
{
}

void FreedesktopWakeSignal::follow(const QDBusConnection &bus)
{
    QDBusConnection(bus).connect(QString(), QStringLiteral("/org/freedesktop/login1"),
                                 QStringLiteral("org.freedesktop.login1.Manager"),
                                 QStringLiteral("PrepareForSleep"), this,
                                 SLOT(prepareForSleep(bool, QDBusMessage)));
    m_logind.follow(bus);
}

void FreedesktopWakeSignal::prepareForSleep(bool isGoingToSleep, const QDBusMessage &signal)
{
    if (signal.service() != m_logind.uniqueName())
        return;
    if (isGoingToSleep)
        Q_EMIT willSleep();
    else
        Q_EMIT didWake();
}

} // namespace ostrel
