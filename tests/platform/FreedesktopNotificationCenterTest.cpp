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

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

using namespace std::chrono_literals;
using Behaviour = StubNotificationDaemon::Behaviour;

const auto shopDown = u"down-shop"_s;
const auto blogDown = u"down-blog"_s;

QUuid monitorOf(const QString &identifier)
{
    return QUuid::createUuidV5(QUuid(), identifier);
}

NotificationRequest request(const QString &identifier, const QString &body,
                            InterruptionLevel level = InterruptionLevel::active)
{
    return {.identifier = identifier,
            .title = u"T <b>&"_s,
            .body = body,
            .level = level,
            .monitorId = monitorOf(identifier)};
}

/// A notification center on a private bus; the test starts the daemon.
class FreedesktopNotificationCenterTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bus.isRunning());
        m_center.follow(m_connection);
    }

    void startDaemon(const QStringList &capabilities = {u"body"_s})
    {
        m_daemon.reset(); // Before the new one asks for the name.
        ASSERT_TRUE(waitFor([&] { return !m_bus.hasOwner(u"org.freedesktop.Notifications"_s); }));
        m_daemon = std::make_unique<StubNotificationDaemon>(m_bus, capabilities);
        settle();
    }
    [[nodiscard]] bool daemonHas(int notifications) const
    {
        return waitFor([&] { return m_daemon->notifications().size() >= notifications; });
    }
    /// Adds a notification, and returns when the daemon has received it and all answers have
    /// arrived.
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
        const QDBusPendingCallWatcher watcher(
            m_connection.interface()->asyncCall(u"NameHasOwner"_s, u"org.freedesktop.DBus"_s));
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

    /// Records clicks from now on, each as its monitor's id and its token.
    void recordClicks()
    {
        m_center.onClick([this](const QUuid &monitorId, const QByteArray &token) {
            m_clicks.append({monitorId, token});
        });
    }
    /// Lets the daemon's signals arrive.
    void click(uint id, const QString &action = u"default"_s)
    {
        m_daemon->click(id, action);
        settle();
    }

    static constexpr uint firstId = StubNotificationDaemon::firstId;

    QList<std::pair<QUuid, QByteArray>> m_clicks;

    PrivateBus m_bus;
    QDBusConnection m_connection = m_bus.connect();
    std::unique_ptr<StubNotificationDaemon> m_daemon;
    FreedesktopNotificationCenter m_center;
};

TEST_F(FreedesktopNotificationCenterTest, SendsAllThatTheProtocolAsksFor)
{
    startDaemon();
    m_center.requestAuthorization();
    m_center.add(request(shopDown, u"HTTP 503"_s, InterruptionLevel::timeSensitive));
    ASSERT_TRUE(daemonHas(1));
    const auto &sent = m_daemon->notifications().first();
    EXPECT_EQ(sent.application, u"Ostrel"_s);
    EXPECT_EQ(sent.replacesId, 0U);
    EXPECT_EQ(sent.icon, u"io.github.ostrel.Ostrel"_s);
    EXPECT_EQ(sent.title, u"T <b>&"_s);
    EXPECT_EQ(sent.body, u"HTTP 503"_s);
    EXPECT_TRUE(sent.actions.isEmpty());
    EXPECT_EQ(sent.expiry, -1);
    EXPECT_EQ(sent.hints.size(), 3);
    EXPECT_EQ(sent.hints.value(u"urgency"_s), QVariant::fromValue<uchar>(2));
    EXPECT_EQ(sent.hints.value(u"urgency"_s).typeId(), QMetaType::UChar);
    EXPECT_EQ(sent.hints.value(u"sound-name"_s).toString(), u"message-new-instant"_s);
    EXPECT_EQ(sent.hints.value(u"desktop-entry"_s).toString(), u"io.github.ostrel.Ostrel"_s);
}

TEST_F(FreedesktopNotificationCenterTest, HasTheUsualUrgencyUnlessItIsTimeSensitive)
{
    startDaemon();
    addAndAwait(shopDown, u"1"_s);
    const QVariantMap hints = m_daemon->notifications().first().hints;
    EXPECT_EQ(hints.value(u"urgency"_s), QVariant::fromValue<uchar>(1));
}

TEST_F(FreedesktopNotificationCenterTest, SoundDoesNotDependOnThePreference)
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    startDaemon();
    for (const bool isOn : {false, true}) {
        QSettings(u"Ostrel"_s, u"Ostrel"_s).setValue(u"playSounds"_s, isOn);
        addAndAwait(shopDown, u"1"_s);
        EXPECT_EQ(m_daemon->notifications().last().hints.value(u"sound-name"_s),
                  QVariant(u"message-new-instant"_s));
    }
}

TEST_F(FreedesktopNotificationCenterTest, EscapesBodiesIfTheDaemonTakesMarkup)
{
    startDaemon({u"body"_s, u"body-markup"_s});
    addAndAwait(shopDown, u"<b>& \"x\""_s);
    EXPECT_EQ(m_daemon->notifications().first().body, u"&lt;b&gt;&amp; &quot;x&quot;"_s);
    EXPECT_EQ(m_daemon->notifications().first().title, u"T <b>&"_s);
}

TEST_F(FreedesktopNotificationCenterTest, SendsBodiesUnchangedIfTheDaemonTakesPlainText)
{
    startDaemon({u"body"_s, u"body-hyperlinks"_s});
    addAndAwait(shopDown, u"<b>&"_s);
    EXPECT_EQ(bodies(), QStringList{u"<b>&"_s});
}

TEST_F(FreedesktopNotificationCenterTest, AsksForCapabilitiesOnceForEveryDaemon)
{
    startDaemon({u"body-markup"_s});
    addAndAwait(shopDown, u"&1"_s);
    addAndAwait(blogDown, u"&2"_s);
    EXPECT_EQ(m_daemon->capabilityCalls(), 1);
    EXPECT_EQ(bodies(), QStringList({u"&amp;1"_s, u"&amp;2"_s}));

    startDaemon({u"body"_s});
    addAndAwait(shopDown, u"&3"_s);
    EXPECT_EQ(m_daemon->capabilityCalls(), 1);
    EXPECT_EQ(bodies(), QStringList{u"&3"_s});
}

TEST_F(FreedesktopNotificationCenterTest, ReplacesByIdentifier)
{
    startDaemon();
    addAndAwait(shopDown, u"1"_s);
    addAndAwait(blogDown, u"2"_s);
    addAndAwait(shopDown, u"3"_s);
    addAndAwait(blogDown, u"4"_s);
    EXPECT_EQ(replacedIds(), QList<uint>({0, 0, firstId, firstId + 1}));
}

TEST_F(FreedesktopNotificationCenterTest, ForgetsTheIdsOfADaemonThatIsGone)
{
    startDaemon();
    addAndAwait(shopDown, u"1"_s);
    startDaemon();
    addAndAwait(shopDown, u"2"_s);
    addAndAwait(shopDown, u"3"_s);
    EXPECT_EQ(replacedIds(), QList<uint>({0, firstId}));
}

TEST_F(FreedesktopNotificationCenterTest, CoalescesWhileTheDaemonIsSlow)
{
    startDaemon();
    addAndAwait(blogDown, u"0"_s);
    m_daemon->setBehaviour(Behaviour::holds);
    // There are no answers while add() runs: this thread is the daemon's as well.
    m_center.add(request(shopDown, u"1"_s));
    m_center.add(request(shopDown, u"2"_s));
    m_center.add(request(shopDown, u"3"_s));
    ASSERT_TRUE(daemonHas(2));
    settle();
    EXPECT_EQ(bodies(), QStringList({u"0"_s, u"1"_s}));

    m_daemon->setBehaviour(Behaviour::answers);
    m_daemon->answerHeld();
    ASSERT_TRUE(daemonHas(3));
    settle();
    EXPECT_EQ(bodies(), QStringList({u"0"_s, u"1"_s, u"3"_s}));
    EXPECT_EQ(replacedIds(), QList<uint>({0, 0, firstId + 1}));
}

TEST_F(FreedesktopNotificationCenterTest, ASlowNotificationDoesNotDelayOthers)
{
    startDaemon();
    addAndAwait(u"first"_s, u"0"_s);
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, u"1"_s));
    m_center.add(request(blogDown, u"2"_s));
    ASSERT_TRUE(daemonHas(3));
    EXPECT_EQ(bodies().last(), u"2"_s);
}

TEST_F(FreedesktopNotificationCenterTest, CoalescesWhileTheCapabilitiesArePending)
{
    startDaemon({u"body-markup"_s});
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, u"1"_s));
    m_center.add(request(blogDown, u"2"_s));
    m_center.add(request(shopDown, u"&3"_s));
    ASSERT_TRUE(waitFor([&] { return m_daemon->capabilityCalls() == 1; }));
    m_daemon->setBehaviour(Behaviour::answers);
    m_daemon->answerHeld();
    ASSERT_TRUE(daemonHas(2));
    settle();
    EXPECT_EQ(bodies(), QStringList({u"&amp;3"_s, u"2"_s}));
}

TEST_F(FreedesktopNotificationCenterTest, StartsOverAfterADaemonThatWasSilent)
{
    startDaemon({u"body-markup"_s});
    m_daemon->setBehaviour(Behaviour::holds);
    FreedesktopNotificationCenter impatient{200ms};
    impatient.follow(m_connection);
    impatient.add(request(shopDown, u"&1"_s));
    // The call for capabilities times out, and no answer means no markup; then the notification's
    // call times out.
    ASSERT_TRUE(daemonHas(1));
    impatient.add(request(shopDown, u"&2"_s));
    ASSERT_TRUE(daemonHas(2));
    EXPECT_EQ(bodies(), QStringList({u"&1"_s, u"&2"_s}));
    EXPECT_EQ(replacedIds(), QList<uint>({0, 0}));
}

TEST_F(FreedesktopNotificationCenterTest, DropsWhatTheDaemonRefuses)
{
    startDaemon();
    addAndAwait(shopDown, u"1"_s);
    m_daemon->setBehaviour(Behaviour::fails);
    addAndAwait(shopDown, u"2"_s);
    m_daemon->setBehaviour(Behaviour::answers);
    addAndAwait(shopDown, u"3"_s);
    EXPECT_EQ(replacedIds(), QList<uint>({0, firstId, 0}));
    EXPECT_EQ(m_daemon->notifications().size(), 3);
}

TEST_F(FreedesktopNotificationCenterTest, IfTheCapabilitiesFailBodiesAreSentAsPlainText)
{
    startDaemon();
    m_daemon->setBehaviour(Behaviour::fails);
    m_center.add(request(shopDown, u"<b>&"_s));
    ASSERT_TRUE(daemonHas(1));
    EXPECT_EQ(bodies(), QStringList{u"<b>&"_s});
}

TEST_F(FreedesktopNotificationCenterTest, StartsOverAfterADaemonThatDiedDuringACall)
{
    startDaemon();
    addAndAwait(shopDown, u"1"_s);
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, u"2"_s));
    ASSERT_TRUE(daemonHas(2));
    m_center.add(request(shopDown, u"3"_s));
    startDaemon();
    ASSERT_TRUE(daemonHas(1));
    EXPECT_EQ(bodies(), QStringList{u"3"_s});
    EXPECT_EQ(replacedIds(), QList<uint>{0});
}

TEST_F(FreedesktopNotificationCenterTest, IgnoresCapabilitiesThatAnEarlierDaemonAnnouncesLate)
{
    startDaemon({u"body-markup"_s});
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, u"1"_s));
    ASSERT_TRUE(waitFor([&] { return m_daemon->capabilityCalls() == 1; }));
    const auto earlier = std::move(m_daemon);
    earlier->giveUpName();
    startDaemon({u"body"_s});
    earlier->answerHeld();
    ASSERT_TRUE(daemonHas(1));
    settle();
    addAndAwait(shopDown, u"&2"_s);
    EXPECT_EQ(bodies().last(), u"&2"_s);
}

TEST_F(FreedesktopNotificationCenterTest, IgnoresAnIdThatAnEarlierDaemonReturnsLate)
{
    startDaemon();
    addAndAwait(blogDown, u"0"_s);
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, u"1"_s));
    ASSERT_TRUE(daemonHas(2));
    const auto earlier = std::move(m_daemon);
    earlier->giveUpName();
    startDaemon();
    earlier->answerHeld();
    settle();
    addAndAwait(shopDown, u"2"_s);
    EXPECT_EQ(replacedIds(), QList<uint>{0});
}

TEST_F(FreedesktopNotificationCenterTest, DropsEverythingWhileThereIsNoDaemon)
{
    m_center.add(request(shopDown, u"1"_s));
    settle();
    settle(); // The call for capabilities fails first, then the notification's call.
    startDaemon();
    addAndAwait(shopDown, u"2"_s);
    EXPECT_EQ(bodies(), QStringList{u"2"_s});
    EXPECT_EQ(replacedIds(), QList<uint>{0});
}

TEST_F(FreedesktopNotificationCenterTest, OutlivesTheBus)
{
    startDaemon();
    addAndAwait(shopDown, u"1"_s);
    m_bus.stop();
    ASSERT_TRUE(waitFor([&] { return !m_connection.isConnected(); }));
    m_center.add(request(shopDown, u"2"_s));

    // It still follows a bus: the end of the former one hasn't broken that.
    PrivateBus next;
    StubNotificationDaemon daemon(next, {});
    m_center.follow(next.connect());
    m_center.add(request(shopDown, u"3"_s));
    EXPECT_TRUE(waitFor([&] { return daemon.notifications().size() == 1; }));
}

TEST_F(FreedesktopNotificationCenterTest, MayBeDestroyedWhileACallIsPending)
{
    startDaemon();
    m_daemon->setBehaviour(Behaviour::holds);
    {
        FreedesktopNotificationCenter center;
        center.follow(m_bus.connect());
        center.add(request(shopDown, u"1"_s));
        ASSERT_TRUE(waitFor([&] { return m_daemon->capabilityCalls() == 1; }));
    }
    m_daemon->answerHeld();
    settle();
    EXPECT_TRUE(m_daemon->notifications().isEmpty());
}

TEST_F(FreedesktopNotificationCenterTest, SendsTextThatTheBusWouldRefuseInAValidForm)
{
    startDaemon();
    const QString hostile = u"a"_s + QChar(0xd800) + QChar(0xffff) + u'b';
    addAndAwait(shopDown, hostile);
    ASSERT_TRUE(m_connection.isConnected());
    EXPECT_TRUE(m_daemon->notifications().first().body.startsWith(u'a'));
}

TEST_F(FreedesktopNotificationCenterTest, KeepsTheNewestOfEachIdentifierUntilAnAwaitedBusIsThere)
{
    startDaemon();
    FreedesktopNotificationCenter early;
    early.awaitBus();
    for (const auto *body : {"1", "2"})
        early.add(request(shopDown, QString::fromLatin1(body)));
    early.add(request(blogDown, u"3"_s));
    early.follow(m_bus.connect());
    ASSERT_TRUE(daemonHas(2));
    EXPECT_EQ(m_daemon->notifications().at(0).body, u"2"_s);
    EXPECT_EQ(m_daemon->notifications().at(1).body, u"3"_s);
}

TEST_F(FreedesktopNotificationCenterTest, DropsEverythingWithoutABus)
{
    startDaemon();
    FreedesktopNotificationCenter busless;
    busless.add(request(shopDown, u"1"_s));
    busless.follow(m_bus.connect());
    busless.add(request(blogDown, u"2"_s));
    ASSERT_TRUE(daemonHas(1));
    EXPECT_EQ(m_daemon->notifications().at(0).body, u"2"_s);
}

TEST_F(FreedesktopNotificationCenterTest, OffersAClickIfTheDaemonTakesActions)
{
    startDaemon({u"body"_s, u"actions"_s});
    addAndAwait(shopDown, u"1"_s);
    EXPECT_EQ(m_daemon->notifications().first().actions,
              QStringList({u"default"_s, u"Open Ostrel"_s}));
}

TEST_F(FreedesktopNotificationCenterTest, AClickNamesTheNotificationsMonitor)
{
    startDaemon();
    recordClicks();
    addAndAwait(shopDown, u"1"_s);
    addAndAwait(blogDown, u"2"_s);
    addAndAwait(blogDown, u"3"_s);
    click(firstId + 1);
    click(firstId);
    ASSERT_EQ(m_clicks.size(), 2);
    EXPECT_EQ(m_clicks[0].first, monitorOf(blogDown));
    EXPECT_EQ(m_clicks[1].first, monitorOf(shopDown));
}

TEST_F(FreedesktopNotificationCenterTest, AClickBringsItsOwnTokenAndNoOther)
{
    startDaemon();
    recordClicks();
    addAndAwait(shopDown, u"1"_s);
    addAndAwait(blogDown, u"2"_s);
    m_daemon->handOutToken(firstId, u"token-1"_s);
    click(firstId);
    click(firstId);
    m_daemon->handOutToken(firstId, u"token-2"_s);
    click(firstId + 1);
    ASSERT_EQ(m_clicks.size(), 3);
    EXPECT_EQ(m_clicks[0].second, "token-1");
    EXPECT_EQ(m_clicks[1].second, "");
    EXPECT_EQ(m_clicks[2].second, "");
}

TEST_F(FreedesktopNotificationCenterTest, AClickThatOvertakesTheIdOfItsNotificationIsNotLost)
{
    startDaemon();
    recordClicks();
    addAndAwait(shopDown, u"1"_s);
    m_daemon->setBehaviour(Behaviour::holds);
    addAndAwait(blogDown, u"2"_s);
    m_daemon->handOutToken(firstId + 1, u"token"_s);
    click(firstId + 1);
    EXPECT_TRUE(m_clicks.isEmpty());
    m_daemon->answerHeld();
    settle();
    ASSERT_EQ(m_clicks.size(), 1);
    EXPECT_EQ(m_clicks[0].first, monitorOf(blogDown));
    EXPECT_EQ(m_clicks[0].second, "token");
}

TEST_F(FreedesktopNotificationCenterTest, AClickIsForgottenOnceAllIdsAreKnown)
{
    startDaemon();
    recordClicks();
    m_daemon->setBehaviour(Behaviour::holds);
    m_center.add(request(shopDown, u"1"_s));
    ASSERT_TRUE(waitFor([&] { return m_daemon->capabilityCalls() == 1; }));
    m_daemon->answerHeld();
    ASSERT_TRUE(daemonHas(1));
    click(firstId + 1);
    m_daemon->answerHeld();
    settle();
    m_daemon->setBehaviour(Behaviour::answers);
    addAndAwait(blogDown, u"2"_s);
    EXPECT_TRUE(m_clicks.isEmpty());
}

TEST_F(FreedesktopNotificationCenterTest, AnEarlyClickIsNotTakenForOneOnALaterDaemonsNotification)
{
    startDaemon();
    recordClicks();
    addAndAwait(shopDown, u"1"_s);
    m_daemon->setBehaviour(Behaviour::holds);
    addAndAwait(blogDown, u"2"_s);
    click(firstId + 1);
    const auto earlier = std::move(m_daemon);
    earlier->giveUpName();
    startDaemon();
    addAndAwait(shopDown, u"3"_s);
    addAndAwait(u"slow-shop"_s, u"4"_s);
    EXPECT_EQ(m_daemon->notifications().size(), 2);
    EXPECT_TRUE(m_clicks.isEmpty());
}

TEST_F(FreedesktopNotificationCenterTest, ClicksOnOthersNotificationsAndOtherActionsAreIgnored)
{
    startDaemon();
    recordClicks();
    addAndAwait(shopDown, u"1"_s);
    click(firstId + 1);
    click(firstId, u"reply"_s);
    EXPECT_TRUE(m_clicks.isEmpty());
}

TEST_F(FreedesktopNotificationCenterTest, ClicksThatAnotherProgramThanTheDaemonReportsAreIgnored)
{
    startDaemon();
    recordClicks();
    addAndAwait(shopDown, u"1"_s);
    const auto earlier = std::move(m_daemon);
    earlier->giveUpName();
    startDaemon();
    addAndAwait(blogDown, u"2"_s);
    earlier->click(firstId);
    settle();
    EXPECT_TRUE(m_clicks.isEmpty());
    click(firstId);
    ASSERT_EQ(m_clicks.size(), 1);
    EXPECT_EQ(m_clicks[0].first, monitorOf(blogDown));
}

TEST_F(FreedesktopNotificationCenterTest, AfterARestartTheDaemonsIdsMayBeThoseOfOthers)
{
    startDaemon();
    recordClicks();
    addAndAwait(shopDown, u"1"_s);
    startDaemon();
    click(firstId);
    EXPECT_TRUE(m_clicks.isEmpty());
    addAndAwait(blogDown, u"2"_s);
    click(firstId);
    ASSERT_EQ(m_clicks.size(), 1);
    EXPECT_EQ(m_clicks[0].first, monitorOf(blogDown));
}

} // namespace
} // namespace ostrel::test
