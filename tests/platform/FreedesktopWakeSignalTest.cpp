#include "FreedesktopWakeSignal.h"

#include "FakeLogind.h"
#include "WaitFor.h"

#include <QDBusMessage>

#include <gtest/gtest.h>

namespace ostrel::test {
namespace {

class FreedesktopWakeSignalTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bus.isRunning());
        QObject::connect(&m_signal, &WakeSignal::didWake, [this] { ++m_wakes; });
    }

    [[nodiscard]] bool seesWakes(int count)
    {
        return waitFor([&] { return m_wakes >= count; });
    }

    PrivateBus m_bus{PrivateBus::Kind::system};
    FreedesktopWakeSignal m_signal{m_bus.connect()};
    int m_wakes = 0;
};

TEST_F(FreedesktopWakeSignalTest, TellsOfAWakeOnceAndOfNoSleep)
{
    FakeLogind logind(m_bus);
    ASSERT_TRUE(logind.isRunning());
    logind.announceSleep();
    logind.announceWake();
    ASSERT_TRUE(seesWakes(1));

    // Signals keep their order: what the first pair had brought would be here before the second.
    logind.announceSleep();
    logind.announceWake();
    ASSERT_TRUE(seesWakes(2));
    EXPECT_EQ(m_wakes, 2);
}

TEST_F(FreedesktopWakeSignalTest, FollowsALogindThatComesBack)
{
    for (int start = 1; start <= 2; ++start) {
        FakeLogind logind(m_bus);
        ASSERT_TRUE(logind.isRunning());
        logind.announceWake();
        EXPECT_TRUE(seesWakes(start));
    }
}

TEST_F(FreedesktopWakeSignalTest, BelievesNobodyButLogind)
{
    QDBusConnection stranger = m_bus.connect();
    QDBusMessage signal = QDBusMessage::createSignal(
        QStringLiteral("/org/freedesktop/login1"), QStringLiteral("org.freedesktop.login1.Manager"),
        QStringLiteral("PrepareForSleep"));
    signal.setArguments({false});
    stranger.send(signal);
    FakeLogind logind(m_bus);
    logind.announceWake();
    ASSERT_TRUE(seesWakes(1));
    EXPECT_EQ(m_wakes, 1);
}

TEST_F(FreedesktopWakeSignalTest, OutlivesTheBus)
{
    m_bus.stop();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_wakes, 0);
}

TEST(WakeSignalTest, IsThereWithoutASystemBus)
{
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    const FreedesktopWakeSignal signal;
    QCoreApplication::processEvents();
    EXPECT_FALSE(QDBusConnection::systemBus().isConnected());
}

TEST(WakeSignalTest, StandsOnTheSystemBusByDefault)
{
    PrivateBus bus(PrivateBus::Kind::system);
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus.address().toUtf8());
    const FreedesktopWakeSignal signal;
    bool isAwake = false;
    QObject::connect(&signal, &WakeSignal::didWake, [&] { isAwake = true; });
    FakeLogind logind(bus);
    logind.announceWake();
    EXPECT_TRUE(waitFor([&] { return isAwake; }));
}

} // namespace
} // namespace ostrel::test
