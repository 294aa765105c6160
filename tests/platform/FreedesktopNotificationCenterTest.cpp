#include "FreedesktopNotificationCenter.h"

#include "Printers.h"
#include "StubNotificationDaemon.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace ostrel::test {
namespace {

using namespace std::chrono_literals;
using Behaviour = StubNotificationDaemon::Behaviour;

const auto shopDown = QStringLiteral("down-shop");
const auto blogDown = QStringLiteral("down-blog");

NotificationRequest request(const QString &identifier, const QString &body,
                            InterruptionLevel level = InterruptionLevel::active)
{
    return {
        .identifier = identifier, .title = QStringLiteral("T <b>&"), .body = body, .level = level};
}

/// A notification center on a private bus; the daemon is the test's business.
class FreedesktopNotificationCenterTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bus.isRunning());
        m_center.follow(m_connection);
    }

    void startDaemon(const QStringList &capabilities = {QStringLiteral("body")})
    {
        m_daemon.reset(); // Before the newcomer asks for the name.
        ASSERT_TRUE(waitFor(
            [&] { return !m_bus.hasOwner(QStringLiteral("org.freedesktop.Notifications")); }));
        m_daemon = std::make_unique<StubNotificationDaemon>(m_bus, capabilities);
        settle();
    }
    [[nodiscard]] bool daemonHas(int notifications) const
    {
        return waitFor([&] { return m_daemon->notifications().size() >= notifications; });
    }
    /// What comes after everything that was sent so far has been answered.
    void addAndAwait(const QString &identifier, const QString &body)
    {
        const auto before = m_daemon->notifications().size();
        m_center.add(request(identifier, body));
        ASSERT_TRUE(daemonHas(static_cast<int>(before) + 1));
        settle();
    }
    /// Lets every reply that the daemon has sent arrive: the bus answers in order.
    void settle()
    {
        bool isAnswered = false;
        const QDBusPendingCallWatcher watcher(m_connection.interface()->asyncCall(
            QStringLiteral("NameHasOwner"), QStringLiteral("org.freedesktop.DBus")));
        QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &watcher,
                         [&] { isAnswered = true; });
        ASSERT_TRUE(waitFor([&] { return isAnswered; }));
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QStringList bodies() const
    {
        QStringList all;
        for (const auto &notification : m_daemon->notifications())
            all.append(notification.body);
        return all;
    }
    [[nodiscard]] QList<uint> replacedIds() const
    {
        QList<uint> all;
        for (const auto &notification : m_daemon->notifications())
            all.append(notification.replacesId);
        return all;
    }

    static constexpr uint firstId = StubNotificationDaemon::firstId;

    PrivateBus m_bus;
    QDBusConnection m_connection = m_bus.connect();
    std::unique_ptr<StubNotificationDaemon> m_daemon;
    FreedesktopNotificationCenter m_center{200ms};
};

TEST_F(FreedesktopNotificationCenterTest, SendsAllThatTheProtocolAsksFor)
{
    startDaemon();
    m_center.requestAuthorization();
    m_center.add(request(shopDown, QStringLiteral("HTTP 503"), InterruptionLevel::timeSensitive));
    ASSERT_TRUE(daemonHas(1));
    const auto &sent = m_daemon->notifications().first();
    EXPECT_EQ(sent.application, QStringLiteral("Ostrel"));
    EXPECT_EQ(sent.replacesId, 0U);
    EXPECT_EQ(sent.icon, QStringLiteral("ostrel"));
    EXPECT_EQ(sent.title, QStringLiteral("T <b>&"));
    EXPECT_EQ(sent.body, QStringLiteral("HTTP 503"));
    EXPECT_TRUE(sent.actions.isEmpty());
    EXPECT_EQ(sent.expiry, -1);
    EXPECT_EQ(sent.hints.size(), 3);
    EXPECT_EQ(sent.hints.value(QStringLiteral("urgency")), QVariant::fromValue<uchar>(2));
    EXPECT_EQ(sent.hints.value(QStringLiteral("urgency")).typeId(), QMetaType::UChar);
    EXPECT_EQ(sent.hints.value(QStringLiteral("sound-name")).toString(),
              QStringLiteral("message-new-instant"));
    EXPECT_EQ(sent.hints.value(QStringLiteral("desktop-entry")).toString(),
              QStringLiteral("ostrel"));
}

TEST_F(FreedesktopNotificationCenterTest, HasTheUsualUrgencyUnlessItIsTimeSensitive)
{
    startDaemon();
    addAndAwait(shopDown, QStringLiteral("1"));
    const QVariantMap hints = m_daemon->notifications().first().hints;
    EXPECT_EQ(hints.value(QStringLiteral("urgency")), QVariant::fromValue<uchar>(1));
}

TEST_F(FreedesktopNotificationCenterTest, SoundsTheSameWhateverIsPreferred)
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    startDaemon();
    for (const bool isOn : {false, true}) {
        QSettings(QStringLiteral("Ostrel"), QStringLiteral("Ostrel"))
            .setValue(QStringLiteral("playSounds"), isOn);
        addAndAwait(shopDown, QStringLiteral("1"));
        EXPECT_EQ(m_daemon->notifications().last().hints.value(QStringLiteral("sound-name")),
                  QVariant(QStringLiteral("message-new-instant")));
    }
}

TEST_F(FreedesktopNotificationCenterTest, EscapesBodiesWhereTheyAreMarkup)
{
    startDaemon({QStringLiteral("body"), QStringLiteral("body-markup")});
    addAndAwait(shopDown, QStringLiteral("<b>& \"x\""));
    EXPECT_EQ(m_daemon->notifications().first().body,
              QStringLiteral("&lt;b&gt;&amp; &quot;x&quot;"));
    EXPECT_EQ(m_daemon->notifications().first().title, QStringLiteral("T <b>&"));
}

TEST_F(FreedesktopNotificationCenterTest, LeavesBodiesAloneWhereTheyAreText)
{
    startDaemon({QStringLiteral("body"), QStringLiteral("body-hyperlinks")});
    addAndAwait(shopDown, QStringLiteral("<b>&"));
    EXPECT_EQ(bodies(), QStringList{QStringLiteral("<b>&")});
}

TEST_F(FreedesktopNotificationCenterTest, AsksForCapabilitiesOnceForEveryDaemon)
{
    startDaemon({QStringLiteral("body-markup")});
    addAndAwait(shopDown, QStringLiteral("&1"));
    addAndAwait(blogDown, QStringLiteral("&2"));
    EXPECT_EQ(m_daemon->capabilityCalls(), 1);
    EXPECT_EQ(bodies(), QStringList({QStringLiteral("&amp;1"), QStringLiteral("&amp;2")}));

    startDaemon({QStringLiteral("body")});
    addAndAwait(shopDown, QStringLiteral("&3"));
    EXPECT_EQ(m_daemon->capabilityCalls(), 1);
    EXPECT_EQ(bodies(), QStringList{QStringLiteral("&3")});
}

TEST_F(FreedesktopNotificationCenterTest, ReplacesByIdentifier)
{
    startDaemon();
    addAndAwait(shopDown, QStringLiteral("1"));
    addAndAwait(blogDown, QStringLiteral("2"));
    addAndAwait(shopDown, QStringLiteral("3"));
    addAndAwait(blogDown, QStringLiteral("4"));
    EXPECT_EQ(replacedIds(), QList<uint>({0, 0, firstId, firstId + 1}));
}

TEST_F(FreedesktopNotificationCenterTest, ForgetsTheIdsOfADaemonThatIsGone)
{
    startDaemon();
    addAndAwait(shopDown, QStringLiteral("1"));
    startDaemon();
    addAndAwait(shopDown, QStringLiteral("2"));
    addAndAwait(shopDown, QStringLiteral("3"));
    EXPECT_EQ(replacedIds(), QList<uint>({0, firstId}));
}

TEST_F(FreedesktopNotificationCenterTest, CoalescesWhileTheDaemonIsSlow)
{
    startDaemon();
    addAndAwait(blogDown, QStringLiteral("0"));
    m_daemon->setBehaviour(Behaviour::holds);
    // Nobody answers while add runs: this thread is the daemon's as well.
    m_center.add(request(shopDown, QStringLiteral("1")));
    m_center.add(request(shopDown, QStringLiteral("2")));
    m_center.add(request(shopDown, QStringLiteral("3")));
    ASSERT_TRUE(daemonHas(2));
    settle();
    EXPECT_EQ(bodies(), QStringList({QStringLiteral("0"), QStringLiteral("1")}));

    m_daemon->setBehaviour(Behaviour::answers);
    m_daemon->answerHeld();
    ASSERT_TRUE(daemonHas(3));
    settle();
    EXPECT_EQ(bodies(),
              QStringList({QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("3")}));
    EXPECT_EQ(replacedIds(), QList<uint>({0, 0, firstId + 1}));
}

TEST_F(FreedesktopNotificationCenterTest, OneThatIsSlowDoesNotHoldUpTheOthers)
{
    startDaemon();
    addAndAwait(QStringLiteral("first"), QStringLiteral("0"));
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, QStringLiteral("1")));
    m_center.add(request(blogDown, QStringLiteral("2")));
    ASSERT_TRUE(daemonHas(3));
    EXPECT_EQ(bodies().last(), QStringLiteral("2"));
}

TEST_F(FreedesktopNotificationCenterTest, CoalescesWhileTheDaemonThinksAboutItsCapabilities)
{
    startDaemon({QStringLiteral("body-markup")});
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, QStringLiteral("1")));
    m_center.add(request(blogDown, QStringLiteral("2")));
    m_center.add(request(shopDown, QStringLiteral("&3")));
    ASSERT_TRUE(waitFor([&] { return m_daemon->capabilityCalls() == 1; }));
    m_daemon->setBehaviour(Behaviour::answers);
    m_daemon->answerHeld();
    ASSERT_TRUE(daemonHas(2));
    settle();
    EXPECT_EQ(bodies(), QStringList({QStringLiteral("&amp;3"), QStringLiteral("2")}));
}

TEST_F(FreedesktopNotificationCenterTest, StartsAfreshAfterADaemonThatWasSilent)
{
    startDaemon({QStringLiteral("body-markup")});
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, QStringLiteral("&1")));
    // The capabilities are given up, and no answer means no markup; then the notification is.
    ASSERT_TRUE(daemonHas(1));
    m_center.add(request(shopDown, QStringLiteral("&2")));
    ASSERT_TRUE(daemonHas(2));
    EXPECT_EQ(bodies(), QStringList({QStringLiteral("&1"), QStringLiteral("&2")}));
    EXPECT_EQ(replacedIds(), QList<uint>({0, 0}));
}

TEST_F(FreedesktopNotificationCenterTest, DropsWhatTheDaemonRefuses)
{
    startDaemon();
    addAndAwait(shopDown, QStringLiteral("1"));
    m_daemon->setBehaviour(Behaviour::fails);
    addAndAwait(shopDown, QStringLiteral("2"));
    m_daemon->setBehaviour(Behaviour::answers);
    addAndAwait(shopDown, QStringLiteral("3"));
    EXPECT_EQ(replacedIds(), QList<uint>({0, firstId, 0}));
    EXPECT_EQ(m_daemon->notifications().size(), 3);
}

TEST_F(FreedesktopNotificationCenterTest, TakesADaemonWithoutCapabilitiesForOneOfText)
{
    startDaemon();
    m_daemon->setBehaviour(Behaviour::fails);
    m_center.add(request(shopDown, QStringLiteral("<b>&")));
    ASSERT_TRUE(daemonHas(1));
    EXPECT_EQ(bodies(), QStringList{QStringLiteral("<b>&")});
}

TEST_F(FreedesktopNotificationCenterTest, StartsAfreshAfterADaemonThatDiedAtWork)
{
    startDaemon();
    addAndAwait(shopDown, QStringLiteral("1"));
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, QStringLiteral("2")));
    ASSERT_TRUE(daemonHas(2));
    m_center.add(request(shopDown, QStringLiteral("3")));
    startDaemon();
    ASSERT_TRUE(daemonHas(1));
    EXPECT_EQ(bodies(), QStringList{QStringLiteral("3")});
    EXPECT_EQ(replacedIds(), QList<uint>{0});
}

TEST_F(FreedesktopNotificationCenterTest, ForgetsCapabilitiesThatAnEarlierDaemonAnnouncesLate)
{
    startDaemon({QStringLiteral("body-markup")});
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, QStringLiteral("1")));
    ASSERT_TRUE(waitFor([&] { return m_daemon->capabilityCalls() == 1; }));
    const auto earlier = std::move(m_daemon);
    earlier->giveUpName();
    startDaemon({QStringLiteral("body")});
    earlier->answerHeld();
    ASSERT_TRUE(daemonHas(1));
    settle();
    addAndAwait(shopDown, QStringLiteral("&2"));
    EXPECT_EQ(bodies().last(), QStringLiteral("&2"));
}

TEST_F(FreedesktopNotificationCenterTest, ForgetsAnIdThatAnEarlierDaemonGivesLate)
{
    startDaemon();
    addAndAwait(blogDown, QStringLiteral("0"));
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, QStringLiteral("1")));
    ASSERT_TRUE(daemonHas(2));
    const auto earlier = std::move(m_daemon);
    earlier->giveUpName();
    startDaemon();
    earlier->answerHeld();
    settle();
    addAndAwait(shopDown, QStringLiteral("2"));
    EXPECT_EQ(replacedIds(), QList<uint>{0});
}

TEST_F(FreedesktopNotificationCenterTest, DropsEverythingWhileThereIsNoDaemon)
{
    m_center.add(request(shopDown, QStringLiteral("1")));
    settle();
    settle(); // The refusal of the capabilities is followed by that of the notification.
    startDaemon();
    addAndAwait(shopDown, QStringLiteral("2"));
    EXPECT_EQ(bodies(), QStringList{QStringLiteral("2")});
    EXPECT_EQ(replacedIds(), QList<uint>{0});
}

TEST_F(FreedesktopNotificationCenterTest, OutlivesTheBus)
{
    startDaemon();
    addAndAwait(shopDown, QStringLiteral("1"));
    m_bus.stop();
    ASSERT_TRUE(waitFor([&] { return !m_connection.isConnected(); }));
    m_center.add(request(shopDown, QStringLiteral("2")));

    // It still follows a bus, which the silent end of the former hasn't broken.
    PrivateBus next;
    StubNotificationDaemon daemon(next, {});
    m_center.follow(next.connect());
    m_center.add(request(shopDown, QStringLiteral("3")));
    EXPECT_TRUE(waitFor([&] { return daemon.notifications().size() == 1; }));
}

TEST_F(FreedesktopNotificationCenterTest, MayEndWhileTheDaemonIsThinking)
{
    startDaemon();
    m_daemon->setBehaviour(Behaviour::holds);
    {
        FreedesktopNotificationCenter center;
        center.follow(m_bus.connect());
        center.add(request(shopDown, QStringLiteral("1")));
        ASSERT_TRUE(waitFor([&] { return m_daemon->capabilityCalls() == 1; }));
    }
    m_daemon->answerHeld();
    settle();
    EXPECT_TRUE(m_daemon->notifications().isEmpty());
}

TEST_F(FreedesktopNotificationCenterTest, SendsTextThatTheBusWouldRefuse)
{
    startDaemon();
    const QString hostile = QStringLiteral("a") + QChar(0xd800) + QChar(0xffff) + u'b';
    addAndAwait(shopDown, hostile);
    ASSERT_TRUE(m_connection.isConnected());
    EXPECT_TRUE(m_daemon->notifications().first().body.startsWith(u'a'));
}

TEST_F(FreedesktopNotificationCenterTest, HoldsBackForABusThatIsAwaitedTheNewestOfEachIdentifier)
{
    startDaemon();
    FreedesktopNotificationCenter early;
    early.awaitBus();
    for (const auto *body : {"1", "2"})
        early.add(request(shopDown, QString::fromLatin1(body)));
    early.add(request(blogDown, QStringLiteral("3")));
    early.follow(m_bus.connect());
    ASSERT_TRUE(daemonHas(2));
    EXPECT_EQ(m_daemon->notifications().at(0).body, QStringLiteral("2"));
    EXPECT_EQ(m_daemon->notifications().at(1).body, QStringLiteral("3"));
}

TEST_F(FreedesktopNotificationCenterTest, DropsEverythingWithoutABus)
{
    startDaemon();
    FreedesktopNotificationCenter busless;
    busless.add(request(shopDown, QStringLiteral("1")));
    busless.follow(m_bus.connect());
    busless.add(request(blogDown, QStringLiteral("2")));
    ASSERT_TRUE(daemonHas(1));
    EXPECT_EQ(m_daemon->notifications().at(0).body, QStringLiteral("2"));
}

} // namespace
} // namespace ostrel::test
