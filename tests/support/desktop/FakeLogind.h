#pragma once

#include "PrivateBus.h"

namespace ostrel::test {

/// Plays logind on the test's own bus, because no test can send its computer to sleep. Releases the
/// name when it is destroyed.
class FakeLogind
{
public:
    /// @p bus outlives it.
    explicit FakeLogind(PrivateBus &bus);
    ~FakeLogind();
    FakeLogind(const FakeLogind &) = delete;
    FakeLogind &operator=(const FakeLogind &) = delete;

    /// Whether it owns logind's name.
    [[nodiscard]] bool isRunning() const { return m_hasName; }

    /// Signals that the computer is about to sleep; returns when the bus has received it.
    void announceSleep();
    /// Signals that the computer is awake again; returns when the bus has received it.
    void announceWake();

private:
    void prepareForSleep(bool isGoingToSleep);

    QDBusConnection m_connection;
    bool m_hasName;
};

} // namespace ostrel::test
