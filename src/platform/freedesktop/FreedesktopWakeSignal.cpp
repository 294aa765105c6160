#include "FreedesktopWakeSignal.h"

using namespace Qt::StringLiterals;

namespace ostrel {

FreedesktopWakeSignal::FreedesktopWakeSignal(QObject *parent)
    : WakeSignal(parent)
    , m_logind(u"org.freedesktop.login1"_s)
{
}

void FreedesktopWakeSignal::follow(const QDBusConnection &bus)
{
    QDBusConnection(bus).connect(QString(), u"/org/freedesktop/login1"_s,
                                 u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, this,
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
