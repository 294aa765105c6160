#pragma once

#include "PrivateBus.h"

namespace ostrel::test {

/// Plays logind on a bus of the test's own, because no test can send its computer to sleep. Its
/// name is free again when this object ends.
class FakeLogind
{
public:
    /// @p bus outlives it.
    explicit FakeLogind(PrivateBus &bus);
    ~FakeLogind();
    FakeLogind(const FakeLogind &) = delete;
    FakeLogind &operator=(const FakeLogind &) = delete;

    /// Whether it has got logind's name.
    [[nodiscard]] bool isRunning() const { return m_hasName; }

    /// Tells everybody that the computer is about to sleep; returns when the bus has taken it.
    void announceSleep();
    /// Tells everybody that the computer is awake again; returns when the bus has taken it.
    void announceWake();

private:
    void prepareForSleep(bool isGoingToSleep);

    QDBusConnection m_connection;
    bool m_hasName;
};

} // namespace ostrel::test
