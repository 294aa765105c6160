#pragma once

#include "PrivateBus.h"

#include <QDBusVirtualObject>

namespace ostrel::test {

/// Plays NetworkManager on the test's own bus, because no test can take its computer's network
/// away. Releases the name when it is destroyed.
///
/// Lives in the test's own thread: a wait for it without an event loop never ends.
class FakeNetworkManager : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// The protocol's numbers.
    enum State : uint {
        unknown = 0,
        asleep = 10,
        disconnected = 20,
        disconnecting = 30,
        connecting = 40,
        connectedLocally = 50,
        connectedToSite = 60,
        connectedGlobally = 70,
    };
    enum class Behaviour {
        answers,
        fails, ///< Answers every question with an error.
        hangs, ///< Never answers.
    };

    /// @p bus outlives it.
    explicit FakeNetworkManager(PrivateBus &bus, uint state = connectedGlobally,
                                Behaviour behaviour = Behaviour::answers);
    ~FakeNetworkManager() override;

    /// Whether it owns NetworkManager's name.
    [[nodiscard]] bool isRunning() const { return m_hasName; }
    [[nodiscard]] int questions() const { return m_questions; }

    void setBehaviour(Behaviour behaviour) { m_behaviour = behaviour; }
    /// Signals the change; returns when the bus has received it.
    void changeState(uint state);
    /// Changes the answer to queries without a signal.
    void changeStateSilently(uint state) { m_state = state; }

    // Its answers on the bus.
    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusConnection m_connection;
    uint m_state;
    Behaviour m_behaviour;
    int m_questions = 0;
    bool m_hasName;
};

} // namespace ostrel::test
