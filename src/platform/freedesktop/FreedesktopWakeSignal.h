#pragma once

#include "WakeSignal.h"

#include <QDBusConnection>

namespace ostrel {

/// Wakes as logind tells of them on the system bus. Without that bus there are none; logind itself
/// may come and go.
class FreedesktopWakeSignal final : public WakeSignal
{
    Q_OBJECT

public:
    explicit FreedesktopWakeSignal(const QDBusConnection &bus = QDBusConnection::systemBus(),
                                   QObject *parent = nullptr);

private Q_SLOTS:
    void prepareForSleep(bool isGoingToSleep);

private:
    QDBusConnection m_bus;
};

} // namespace ostrel
