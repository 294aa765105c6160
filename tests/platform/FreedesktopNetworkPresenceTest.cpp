#include "FreedesktopNetworkPresence.h"

#include "FakeNetworkManager.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

using namespace std::chrono_literals;

class FreedesktopNetworkPresenceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bus.isRunning());
        QObject::connect(&m_presence, &NetworkPresence::isPresentChanged, [this] { ++m_changes; });
    }

    /// Handles everything that the bus has received so far: it delivers in order.
    void receiveAll()
    {
        (void)m_connection.interface()->registeredServiceNames();
        QCoreApplication::processEvents();
    }

    [[nodiscard]] bool becomes(bool isPresent)
    {
        return waitFor([&] { return m_presence.isPresent() == isPresent; });
    }

    PrivateBus m_bus{PrivateBus::Kind::system};
    QDBusConnection m_connection = m_bus.connect();
    /// Takes an answer for missing only long after a busy computer has given it.
    FreedesktopNetworkPresence m_presence{1h};
    int m_changes = 0;
};

TEST_F(FreedesktopNetworkPresenceTest, IsThereUnlessEveryConnectionIsAway)
{
    FakeNetworkManager manager(m_bus);
    ASSERT_TRUE(manager.isRunning());
    m_presence.follow(m_connection);
    ASSERT_TRUE(waitFor([&] { return manager.questions() == 1; }));
    const std::pair<uint, bool> states[] = {
        {10, false}, {70, true}, {20, false}, {60, true}, {30, false},           {50, true},
        {40, false}, {0, true},  {9, true},   {41, true}, {4'000'000'000, true},
    };
    for (const auto &[state, isPresent] : states) {
        manager.changeState(state);
        receiveAll();
        EXPECT_EQ(m_presence.isPresent(), isPresent) << state;
    }
    EXPECT_EQ(m_changes, 8);
}

TEST_F(FreedesktopNetworkPresenceTest, ReadsTheInitialState)
{
    const FakeNetworkManager manager(m_bus, FakeNetworkManager::disconnected);
    m_presence.follow(m_connection);
    EXPECT_TRUE(m_presence.isPresent());
    EXPECT_TRUE(becomes(false));
}

TEST_F(FreedesktopNetworkPresenceTest, IsThereWhenNetworkManagerEnds)
{
    m_presence.follow(m_connection);
    for (int start = 1; start <= 2; ++start) {
        std::optional<FakeNetworkManager> manager;
        manager.emplace(m_bus, FakeNetworkManager::asleep);
        EXPECT_TRUE(becomes(false));
        manager.reset();
        EXPECT_TRUE(becomes(true));
    }
}

TEST_F(FreedesktopNetworkPresenceTest, IsThereWhenTheBusEnds)
{
    const FakeNetworkManager manager(m_bus, FakeNetworkManager::asleep);
    m_presence.follow(m_connection);
    ASSERT_TRUE(becomes(false));
    m_bus.stop();
    EXPECT_TRUE(becomes(true));
}

TEST_F(FreedesktopNetworkPresenceTest, IsThereWhenNetworkManagerFallsSilent)
{
    FakeNetworkManager manager(m_bus, FakeNetworkManager::connecting);
    FreedesktopNetworkPresence hasty(2s);
    hasty.follow(m_connection);
    ASSERT_TRUE(waitFor([&] { return !hasty.isPresent(); }));
    manager.setBehaviour(FakeNetworkManager::Behaviour::hangs);
    EXPECT_TRUE(waitFor([&] { return hasty.isPresent(); }));
}

TEST_F(FreedesktopNetworkPresenceTest, AsksAgainWhileThereIsNoNetwork)
{
    FakeNetworkManager manager(m_bus, FakeNetworkManager::disconnected);
    FreedesktopNetworkPresence hasty(2s);
    hasty.follow(m_connection);
    ASSERT_TRUE(waitFor([&] { return manager.questions() >= 2; }));
    EXPECT_FALSE(hasty.isPresent());
    manager.changeStateSilently(FakeNetworkManager::connectedGlobally);
    EXPECT_TRUE(waitFor([&] { return hasty.isPresent(); }));
}

TEST_F(FreedesktopNetworkPresenceTest, IsThereIfNetworkManagerFailsOrHangs)
{
    using enum FakeNetworkManager::Behaviour;
    m_presence.follow(m_connection);
    for (const auto behaviour : {fails, hangs}) {
        const FakeNetworkManager manager(m_bus, FakeNetworkManager::asleep, behaviour);
        ASSERT_TRUE(waitFor([&] { return manager.questions() == 1; }));
        receiveAll();
        EXPECT_TRUE(m_presence.isPresent());
    }
    EXPECT_EQ(m_changes, 0);
}

TEST_F(FreedesktopNetworkPresenceTest, IgnoresSignalsThatAreNotNetworkManagers)
{
    FakeNetworkManager manager(m_bus);
    m_presence.follow(m_connection);
    ASSERT_TRUE(waitFor([&] { return manager.questions() == 1; }));
    QDBusMessage signal =
        QDBusMessage::createSignal(u"/org/freedesktop/NetworkManager"_s,
                                   u"org.freedesktop.NetworkManager"_s, u"StateChanged"_s);
    signal.setArguments({uint(FakeNetworkManager::asleep)});
    QDBusConnection stranger = m_bus.connect();
    stranger.send(signal);
    // The bus answers a connection only after handling what the connection has sent before.
    (void)stranger.interface()->registeredServiceNames();
    receiveAll();
    EXPECT_TRUE(m_presence.isPresent());
}

TEST(NetworkPresenceTest, DoesNotStartNetworkManager)
{
    PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    const QTemporaryDir folder;
    const QString started = folder.filePath(u"started"_s);
    const QString startedLater = folder.filePath(u"started-later"_s);
    const auto touch = u"/usr/bin/touch "_s;
    bus.makeActivatable(u"org.freedesktop.NetworkManager"_s, touch + started);
    bus.makeActivatable(u"org.example.Later"_s, touch + startedLater);
    QDBusConnection connection = bus.connect();
    FreedesktopNetworkPresence presence;
    presence.follow(connection);
    QCoreApplication::processEvents();
    connection.interface()->asyncCall(u"StartServiceByName"_s, u"org.example.Later"_s, uint(0));
    EXPECT_TRUE(waitFor([&] { return QFile::exists(startedLater); }));
    EXPECT_FALSE(QFile::exists(started));
    EXPECT_TRUE(presence.isPresent());
}

} // namespace
} // namespace ostrel::test
