#include "FreedesktopWakeSignal.h"

#include "FakeLogind.h"
#include "WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

class FreedesktopWakeSignalTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bus.isRunning());
        m_signal.follow(m_connection);
        QObject::connect(&m_signal, &WakeSignal::didWake, [this] { ++m_wakes; });
    }

    /// Handles everything that the bus has received so far: it delivers in order.
    void receiveAll()
    {
        (void)m_connection.interface()->registeredServiceNames();
        QCoreApplication::processEvents();
    }

    PrivateBus m_bus{PrivateBus::Kind::system};
    QDBusConnection m_connection = m_bus.connect();
    FreedesktopWakeSignal m_signal;
    int m_wakes = 0;
};

TEST_F(FreedesktopWakeSignalTest, SignalsAWakeOnceAndNoSleep)
{
    FakeLogind logind(m_bus);
    ASSERT_TRUE(logind.isRunning());
    logind.announceSleep();
    receiveAll();
    EXPECT_EQ(m_wakes, 0);
    logind.announceWake();
    receiveAll();
    EXPECT_EQ(m_wakes, 1);
}

TEST_F(FreedesktopWakeSignalTest, FollowsALogindThatComesBack)
{
    for (int start = 1; start <= 2; ++start) {
        FakeLogind logind(m_bus);
        ASSERT_TRUE(logind.isRunning());
        logind.announceWake();
        EXPECT_TRUE(waitFor([&] { return m_wakes == start; })) << "start " << start;
    }
}

TEST_F(FreedesktopWakeSignalTest, IgnoresSignalsThatAreNotLoginds)
{
    const FakeLogind logind(m_bus);
    ASSERT_TRUE(logind.isRunning());
    QDBusMessage message = QDBusMessage::createSignal(
        u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s);
    message.setArguments({false});
    QDBusConnection stranger = m_bus.connect();
    stranger.send(message);
    // The bus answers a connection only after handling what the connection has sent before.
    (void)stranger.interface()->registeredServiceNames();
    receiveAll();
    EXPECT_EQ(m_wakes, 0);
}

TEST_F(FreedesktopWakeSignalTest, OutlivesTheBus)
{
    m_bus.stop();
    ASSERT_TRUE(waitFor([&] { return !m_connection.isConnected(); }));
    EXPECT_EQ(m_wakes, 0);
}

} // namespace
} // namespace ostrel::test
