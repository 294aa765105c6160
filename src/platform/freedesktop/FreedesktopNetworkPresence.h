#pragma once

#include "NameOwner.h"
#include "NetworkPresence.h"

#include <QDBusMessage>
#include <QTimer>

#include <chrono>
#include <optional>

namespace ostrel {

/// The presence of a network as reported by NetworkManager on the system bus. If NetworkManager
/// isn't running (it is never started for us), ends, or doesn't answer, a network is assumed.
class FreedesktopNetworkPresence final : public NetworkPresence
{
    Q_OBJECT

public:
    /// How often NetworkManager is asked again while it reports no network, and the time-out for
    /// its answer: if it stops answering, it can't report that the network is back.
    static constexpr std::chrono::milliseconds defaultInterval{30'000};

    explicit FreedesktopNetworkPresence(std::chrono::milliseconds interval = defaultInterval,
                                        QObject *parent = nullptr);

    /// @p bus must be connected. Call at most once.
    void follow(const QDBusConnection &bus);

private Q_SLOTS:
    void stateChanged(uint state, const QDBusMessage &signal);
    void forget();

private:
    void changeOwner();
    void ask();
    void takeState(std::optional<uint> state);

    std::optional<QDBusConnection> m_bus;
    NameOwner m_owner;
    QTimer m_nextQuestion;
};

} // namespace ostrel
