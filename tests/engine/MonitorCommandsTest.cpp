#include "MonitorCommands.h"

#include "PeriodicTask.h"
#include "Printers.h"
#include "ScriptedEngine.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class MonitorCommandsTest : public testing::Test, protected FolderStore, protected ScriptedEngine
{
protected:
    MonitorCommandsTest()
        : ScriptedEngine(store)
    {
        QObject::connect(&store, &MonitorStore::monitorsChanged, &commands,
                         [this] { steps += u"stored"_s; });
        QObject::connect(&engine, &MonitoringEngine::tasksChanged, &commands,
                         [this] { steps += u"engine"_s; });
    }

    /// What the store and the engine have done, in order.
    [[nodiscard]] QString takeSteps()
    {
        steps.removeDuplicates();
        return std::exchange(steps, {}).join(u' ');
    }
    [[nodiscard]] bool isWatched() const { return engine.tasks().contains(shop.id); }
    [[nodiscard]] bool isEnabled() const { return store.monitor(shop.id)->isEnabled; }

    QStringList steps;
    Monitor shop = makeMonitor();
    MonitorCommands commands{store, engine};
};

} // namespace

TEST_F(MonitorCommandsTest, ANewMonitorIsStoredThenWatchedAndCheckedAtOnce)
{
    commands.create(shop);
    EXPECT_EQ(takeSteps(), u"stored engine"_s);
    EXPECT_EQ(store.monitors(), QList<Monitor>{shop});
    EXPECT_TRUE(isWatched());
    EXPECT_EQ(httpCheck.runs, std::vector<Monitor>{shop});
}

TEST_F(MonitorCommandsTest, AnUpdatedMonitorIsStoredThenWatchedAgainAndCheckedAtOnce)
{
    commands.create(shop);
    auto *before = engine.tasks().value(shop.id);
    static_cast<void>(takeSteps());

    shop.interval = Seconds(3600);
    commands.update(shop);

    EXPECT_EQ(takeSteps(), u"stored engine"_s);
    EXPECT_EQ(store.monitors(), QList<Monitor>{shop});
    EXPECT_NE(engine.tasks().value(shop.id), before);
    ASSERT_EQ(httpCheck.runs.size(), 2u);
    EXPECT_EQ(httpCheck.runs.back(), shop);
}

TEST_F(MonitorCommandsTest, AnUpdateOfAPausedMonitorChecksNothing)
{
    shop.isEnabled = false;
    commands.create(shop);
    shop.interval = Seconds(3600);
    commands.update(shop);
    EXPECT_EQ(store.monitors(), QList<Monitor>{shop});
    EXPECT_FALSE(isWatched());
    EXPECT_TRUE(httpCheck.runs.empty());
}

TEST_F(MonitorCommandsTest, AnUpdateDoesNotBringADeletedMonitorBack)
{
    commands.create(shop);
    commands.remove(shop.id);
    commands.update(shop);
    EXPECT_TRUE(store.monitors().isEmpty());
}

TEST_F(MonitorCommandsTest, APausedMonitorIsStoredThenStopped)
{
    commands.create(shop);
    static_cast<void>(takeSteps());
    commands.pause(shop.id);
    EXPECT_EQ(takeSteps(), u"stored engine"_s);
    EXPECT_FALSE(isEnabled());
    EXPECT_FALSE(isWatched());
}

TEST_F(MonitorCommandsTest, AResumedMonitorIsStoredThenCheckedAtOnce)
{
    shop.isEnabled = false;
    store.addMonitor(shop);
    static_cast<void>(takeSteps());
    commands.resume(shop.id);
    EXPECT_EQ(takeSteps(), u"stored engine"_s);
    EXPECT_TRUE(isEnabled());
    EXPECT_TRUE(isWatched());
    EXPECT_EQ(httpCheck.runs.size(), 1u);
}

TEST_F(MonitorCommandsTest, PausingAPausedOrResumingAWatchedMonitorDoesNothing)
{
    commands.create(shop);
    static_cast<void>(takeSteps());
    commands.resume(shop.id);
    EXPECT_EQ(takeSteps(), QString());
    EXPECT_EQ(httpCheck.runs.size(), 1u);

    commands.pause(shop.id);
    static_cast<void>(takeSteps());
    commands.pause(shop.id);
    EXPECT_EQ(takeSteps(), QString());
}

TEST_F(MonitorCommandsTest, ARemovedMonitorIsStoppedThenForgottenWithItsHistory)
{
    commands.create(shop);
    ASSERT_TRUE(waitFor([&] { return store.checks(shop.id).size() == 1; }));
    static_cast<void>(takeSteps());
    commands.remove(shop.id);
    EXPECT_EQ(takeSteps(), u"engine stored"_s);
    EXPECT_FALSE(isWatched());
    EXPECT_TRUE(store.monitors().isEmpty());
    EXPECT_TRUE(store.checks(shop.id).empty());
}

TEST_F(MonitorCommandsTest, CheckNowChecksAPausedMonitorTooAndItsResultArrivesThroughTheStore)
{
    shop.isEnabled = false;
    commands.create(shop);
    commands.checkNow(shop.id);
    EXPECT_TRUE(waitFor([&] { return store.checks(shop.id).size() == 1; }));
    EXPECT_FALSE(isWatched());
}

TEST_F(MonitorCommandsTest, ACheckOnRequestIsAnnouncedAndNotRepeatedUntilItHasEnded)
{
    shop.isEnabled = false;
    commands.create(shop);
    QList<bool> announced;
    QObject::connect(&commands, &MonitorCommands::checkingChanged, &commands,
                     [&](const QUuid &monitorId, bool isChecking) {
                         EXPECT_EQ(monitorId, shop.id);
                         announced += isChecking;
                     });
    httpCheck.hold();
    commands.checkNow(shop.id);
    commands.checkNow(shop.id);
    EXPECT_EQ(announced, QList<bool>{true});
    EXPECT_EQ(httpCheck.runs.size(), 1u);

    httpCheck.finishNext(true);
    ASSERT_TRUE(waitFor([&] { return announced.size() == 2; }));
    EXPECT_EQ(announced.last(), false);
    EXPECT_EQ(store.checks(shop.id).size(), 1u);
    commands.checkNow(shop.id);
    EXPECT_EQ(httpCheck.runs.size(), 2u);
}

TEST_F(MonitorCommandsTest, ACheckOnRequestThatIsCancelledHasEnded)
{
    shop.isEnabled = false;
    commands.create(shop);
    httpCheck.hold();
    commands.checkNow(shop.id);
    httpCheck.cancelNext();
    EXPECT_TRUE(waitFor([&] {
        commands.checkNow(shop.id);
        return httpCheck.runs.size() == 2;
    }));
}

TEST_F(MonitorCommandsTest, CommandsForADeletedMonitorDoNothing)
{
    commands.create(shop);
    commands.remove(shop.id);
    static_cast<void>(takeSteps());
    commands.checkNow(shop.id);
    commands.pause(shop.id);
    commands.resume(shop.id);
    commands.remove(shop.id);
    EXPECT_EQ(takeSteps(), QString());
    EXPECT_EQ(httpCheck.runs.size(), 1u);
}

TEST_F(MonitorCommandsTest, ChangesAreMadeTogether)
{
    commands.create(shop);
    Monitor news = makeMonitor(u"News"_s);
    const std::vector<Check> history = {
        {.id = QUuid::createUuid(), .monitorId = news.id, .timestamp = {}}};
    const auto made = commands.apply({MonitorChange::create(news, history),
                                      MonitorChange::of(MonitorChange::Kind::pause, shop.id),
                                      MonitorChange::of(MonitorChange::Kind::resume, news.id)});
    EXPECT_EQ(
        std::get<QList<ChangeOutcome>>(made),
        (QList<ChangeOutcome>{ChangeOutcome::done, ChangeOutcome::done, ChangeOutcome::unchanged}));
    EXPECT_FALSE(isEnabled());
    EXPECT_FALSE(isWatched());
    EXPECT_TRUE(engine.tasks().contains(news.id));
    EXPECT_EQ(store.checks(news.id).size(), 1u);
}

TEST_F(MonitorCommandsTest, ARefusalChangesNothing)
{
    commands.create(shop);
    static_cast<void>(takeSteps());
    const auto made = commands.apply({MonitorChange::of(MonitorChange::Kind::remove, shop.id),
                                      MonitorChange::of(MonitorChange::Kind::pause, shop.id)});
    EXPECT_TRUE(std::holds_alternative<Refusal>(made));
    EXPECT_EQ(takeSteps(), QString());
    EXPECT_EQ(store.monitors(), QList<Monitor>{shop});
}

TEST_F(MonitorCommandsTest, WithoutAnEngineOnlyTheStoreChanges)
{
    MonitorCommands storing(store);
    storing.create(shop);
    storing.pause(shop.id);
    EXPECT_FALSE(isEnabled());
    EXPECT_TRUE(storing.checkNow(shop.id).isFinished());
    storing.remove(shop.id);
    EXPECT_TRUE(store.monitors().isEmpty());
    EXPECT_TRUE(httpCheck.runs.empty());
}

} // namespace ostrel::test
