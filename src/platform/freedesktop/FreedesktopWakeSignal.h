#pragma once

#include "NameOwner.h"
#include "WakeSignal.h"

#include <QDBusMessage>

namespace ostrel {

/// Wakes as reported by logind on the system bus. Without that bus there are none; logind itself
/// may come and go.
class FreedesktopWakeSignal final : public WakeSignal
{
    Q_OBJECT

public:
    explicit FreedesktopWakeSignal(QObject *parent = nullptr);

    /// @p bus must be connected. Call at most once.
    void follow(const QDBusConnection &bus);

private Q_SLOTS:
    void prepareForSleep(bool isGoingToSleep, const QDBusMessage &signal);

private:
    NameOwner m_logind;
};

} // namespace ostrel
