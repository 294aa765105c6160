#pragma once

#include "NameOwner.h"
#include "NetworkPresence.h"

#include <QDBusMessage>
#include <QTimer>

#include <chrono>
#include <optional>

namespace ostrel {

/// The presence of a network as NetworkManager tells of it on the system bus. Where that doesn't
/// run (it is never started for us), ends, or doesn't answer, there is a network.
class FreedesktopNetworkPresence final : public NetworkPresence
{
    Q_OBJECT

public:
    /// How often NetworkManager is asked again while it says that there is none, and how long it
    /// has for its answer: who has fallen silent can't say that the network is back.
    static constexpr std::chrono::milliseconds defaultInterval{30'000};

    explicit FreedesktopNetworkPresence(std::chrono::milliseconds interval = defaultInterval,
                                        QObject *parent = nullptr);

    /// @p bus is connected. At most once.
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
