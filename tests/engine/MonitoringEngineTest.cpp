#include "MonitoringEngine.h"

#include "PeriodicTask.h"
#include "Printers.h"
#include "ScriptedEngine.h"
#include "WaitFor.h"

#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class MonitoringEngineTest : public testing::Test, protected FolderStore, protected ScriptedEngine
{
protected:
    MonitoringEngineTest()
        : ScriptedEngine(store)
    {
    }

    /// Processes events until there are none left.
    static void settle()
    {
        QEventLoop loop;
        while (loop.processEvents()) {
        }
    }

    /// Wakes the sleeping tasks for their next checks.
    void nextRound()
    {
        sleeper.wakeAll();
        settle();
    }

    /// Watches one monitor through @p outcomes, one check each.
    void runThrough(std::initializer_list<bool> outcomes)
    {
        httpCheck.willBe(outcomes);
        store.addMonitor(monitor);
        engine.startMonitoring(monitor);
        settle();
        for (std::size_t round = 1; round < outcomes.size(); ++round)
            nextRound();
    }

    Monitor monitor = makeMonitor();
};

const QStringList none;

} // namespace

TEST_F(MonitoringEngineTest, TheFirstCheckIsMadeAtOnceAndRecorded)
{
    runThrough({true});

    ASSERT_EQ(store.checks(monitor.id).size(), 1u);
    EXPECT_TRUE(store.checks(monitor.id).front().isUp);
    ASSERT_EQ(sleeper.sleeps.size(), 1u);
    EXPECT_EQ(sleeper.sleeps.front().duration, monitor.interval);
}

TEST_F(MonitoringEngineTest, TheSecondFailureInARowNotifiesOnce)
{
    runThrough({false, false, false, false});

    EXPECT_EQ(store.checks(monitor.id).size(), 4u);
    ASSERT_EQ(center.kinds(), QStringList{u"down"_s});
    EXPECT_EQ(center.requests.front().body, u"HTTP 503"_s);
    EXPECT_EQ(engine.consecutiveFailures().value(monitor.id), 4);
}

TEST_F(MonitoringEngineTest, TheFirstFailureDoesNotNotifyButTheSecondDoes)
{
    runThrough({false});
    EXPECT_EQ(center.kinds(), none);

    httpCheck.willBe({false});
    nextRound();
    EXPECT_EQ(center.kinds(), QStringList{u"down"_s});
}

TEST_F(MonitoringEngineTest, SingleFailuresNeverNotify)
{
    runThrough({false, true, false, true});
    EXPECT_EQ(store.checks(monitor.id).size(), 4u);
    EXPECT_EQ(center.kinds(), none);
}

TEST_F(MonitoringEngineTest, RecoveryAfterAnOutageNotifiesOnce)
{
    runThrough({false, false, true, true});

    ASSERT_EQ(center.kinds(), QStringList({u"down"_s, u"up"_s}));
    EXPECT_EQ(center.requests.back().body, u"Responding in 12ms"_s);
    ASSERT_TRUE(engine.consecutiveFailures().contains(monitor.id));
    EXPECT_EQ(engine.consecutiveFailures().value(monitor.id), 0);
}

TEST_F(MonitoringEngineTest, WithoutNotifyOnDownTheOutageIsCountedAndItsEndNotifies)
{
    monitor.notifyOnDown = false;
    runThrough({false, false});
    EXPECT_EQ(engine.consecutiveFailures().value(monitor.id), 2);
    EXPECT_EQ(center.kinds(), none);

    nextRound();
    EXPECT_EQ(center.kinds(), QStringList{u"up"_s});
}

TEST_F(MonitoringEngineTest, WithoutNotifyOnRecoveryTheEndDoesNotNotify)
{
    monitor.notifyOnRecovery = false;
    runThrough({false, false, true});
    EXPECT_EQ(center.kinds(), QStringList{u"down"_s});
}

TEST_F(MonitoringEngineTest, ASlowAnswerNotifiesAtEveryCheck)
{
    monitor.responseTimeThreshold = Milliseconds(5);
    runThrough({true, true});
    ASSERT_EQ(center.kinds(), QStringList({u"slow"_s, u"slow"_s}));
    EXPECT_EQ(center.requests.front().body, u"12ms (threshold: 5ms)"_s);
    EXPECT_EQ(center.requests.front(), center.requests.back());
}

TEST_F(MonitoringEngineTest, AResponseNotifiesBeforeItIsRecordedAndARecoveryAfterThat)
{
    runThrough({false, false});
    center.requests.clear();
    QStringList kindsWhenRecorded;
    QObject::connect(&store, &MonitorStore::checksChanged, &engine,
                     [&] { kindsWhenRecorded = center.kinds(); });
    monitor.responseTimeThreshold = Milliseconds(5);
    Check check = newCheck(monitor, systemNow());
    check.statusCode = 200;
    check.isUp = true;
    check.responseTime = 12;
    check.sslExpiresAt = check.timestamp + 36h;

    engine.handleResult(check, monitor);

    const QStringList ofTheResponse = {u"slow"_s, u"ssl"_s};
    EXPECT_EQ(kindsWhenRecorded, ofTheResponse);
    EXPECT_EQ(center.kinds(), ofTheResponse + QStringList{u"up"_s});
    EXPECT_EQ(center.requests.at(1).body, u"Shop: 1 day remaining"_s);
}

TEST_F(MonitoringEngineTest, StartingTwiceDoesNothingTheSecondTime)
{
    store.addMonitor(monitor);
    engine.start();
    settle();
    EXPECT_TRUE(engine.isRunning());
    auto *task = engine.tasks().value(monitor.id);

    engine.start();
    settle();
    EXPECT_EQ(engine.tasks().value(monitor.id), task);
    EXPECT_EQ(httpCheck.runs.size(), 1u);
}

TEST_F(MonitoringEngineTest, StartWatchesTheEnabledMonitorsInTheStoresOrder)
{
    Monitor paused = makeMonitor(u"Paused"_s);
    paused.isEnabled = false;
    const Monitor second = makeMonitor(u"Second"_s);
    for (const Monitor &each : {monitor, paused, second})
        store.addMonitor(each);
    int taskChanges = 0;
    QObject::connect(&engine, &MonitoringEngine::tasksChanged, [&] { ++taskChanges; });

    engine.start();
    settle();

    EXPECT_EQ(taskChanges, 4) << "two for each that is started";
    ASSERT_EQ(httpCheck.runs.size(), 2u);
    EXPECT_EQ(httpCheck.runs.at(0), monitor);
    EXPECT_EQ(httpCheck.runs.at(1), second);
    EXPECT_EQ(engine.tasks().size(), 2);
    EXPECT_FALSE(engine.tasks().contains(paused.id));
}

TEST_F(MonitoringEngineTest, StartMonitoringADisabledMonitorOnlyStopsIt)
{
    runThrough({true});
    monitor.isEnabled = false;
    store.updateMonitor(monitor);
    engine.startMonitoring(monitor);
    settle();

    EXPECT_TRUE(engine.tasks().isEmpty());
    nextRound();
    EXPECT_EQ(httpCheck.runs.size(), 1u);
}

TEST_F(MonitoringEngineTest, CheckNowChecksAPausedMonitorAndRecordsIt)
{
    monitor.isEnabled = false;
    store.addMonitor(monitor);
    engine.checkNow(monitor);
    settle();

    EXPECT_EQ(store.checks(monitor.id).size(), 1u);
    EXPECT_TRUE(engine.tasks().isEmpty());
    EXPECT_TRUE(sleeper.sleeps.empty());
}

TEST_F(MonitoringEngineTest, AWakeChecksEveryEnabledMonitorOnceMoreAtOnce)
{
    Monitor paused = makeMonitor(u"Paused"_s);
    paused.isEnabled = false;
    const Monitor second = makeMonitor(u"Second"_s);
    for (const Monitor &each : {monitor, paused, second})
        store.addMonitor(each);
    engine.start();
    settle();
    const auto sleepsBefore = sleeper.sleeps.size();

    Q_EMIT wakeSignal.didWake();
    settle();

    EXPECT_EQ(store.checks(monitor.id).size(), 2u);
    EXPECT_EQ(store.checks(second.id).size(), 2u);
    EXPECT_TRUE(store.checks(paused.id).empty());
    EXPECT_EQ(sleeper.sleeps.size(), sleepsBefore) << "the periodic tasks keep their own timing";
}

TEST_F(MonitoringEngineTest, TheTypeDecidesWhichCheckRuns)
{
    monitor.type = MonitorType::port;
    runThrough({true});
    EXPECT_EQ(portCheck.runs.size(), 1u);
    EXPECT_TRUE(httpCheck.runs.empty());
}

TEST_F(MonitoringEngineTest, EditsInTheStoreReachTheNextCheckAndTheIntervalOnlyANewTask)
{
    runThrough({true});
    Monitor edited = monitor;
    edited.url = u"https://other.example/"_s;
    edited.interval = Seconds(900);
    store.updateMonitor(edited);
    nextRound();

    EXPECT_EQ(httpCheck.runs.back(), edited);
    EXPECT_EQ(sleeper.sleeps.back().duration, monitor.interval);

    engine.startMonitoring(edited);
    settle();
    EXPECT_EQ(sleeper.sleeps.back().duration, edited.interval);
}

TEST_F(MonitoringEngineTest, TheFirstCheckUsesTheGivenCopyWithoutAskingTheStore)
{
    engine.startMonitoring(monitor);
    settle();
    ASSERT_EQ(httpCheck.runs.size(), 1u);
    EXPECT_EQ(httpCheck.runs.front(), monitor);
}

TEST_F(MonitoringEngineTest, ATaskWhoseMonitorIsGoneOrDisabledSkipsTheCheckAndSleepsAgain)
{
    runThrough({true});
    store.deleteMonitor(monitor.id);
    nextRound();
    EXPECT_EQ(httpCheck.runs.size(), 1u);
    ASSERT_EQ(sleeper.sleeps.size(), 1u);

    store.addMonitor(monitor);
    nextRound();
    EXPECT_EQ(httpCheck.runs.size(), 2u);

    monitor.isEnabled = false;
    store.updateMonitor(monitor);
    nextRound();
    EXPECT_EQ(httpCheck.runs.size(), 2u);
    EXPECT_EQ(sleeper.sleeps.size(), 1u);
}

TEST_F(MonitoringEngineTest, AStoppedMonitorsCheckInProgressIsStillRecorded)
{
    httpCheck.hold();
    store.addMonitor(monitor);
    engine.startMonitoring(monitor);
    settle();
    engine.stopMonitoring(monitor);
    httpCheck.finishNext(true);

    EXPECT_TRUE(waitFor([&] { return store.checks(monitor.id).size() == 1; }));
    EXPECT_TRUE(engine.tasks().isEmpty());
    EXPECT_TRUE(sleeper.sleeps.empty()) << "nothing goes on after that check";
}

TEST_F(MonitoringEngineTest, ADeletedMonitorsLateResultBringsBackNeitherMonitorNorTask)
{
    httpCheck.hold();
    store.addMonitor(monitor);
    engine.startMonitoring(monitor);
    settle();
    engine.stopMonitoring(monitor);
    store.deleteMonitor(monitor.id);
    httpCheck.finishNext(true);

    EXPECT_TRUE(waitFor([&] { return store.checks(monitor.id).size() == 1; }))
        << "a check of an unknown monitor is kept all the same";
    EXPECT_TRUE(store.monitors().isEmpty());
    EXPECT_TRUE(engine.tasks().isEmpty());
    EXPECT_TRUE(sleeper.sleeps.empty());
}

TEST_F(MonitoringEngineTest, PausingKeepsTheFailureCount)
{
    runThrough({false, false});
    engine.stopMonitoring(monitor);
    httpCheck.willBe({false, true});
    engine.startMonitoring(monitor);
    settle();
    EXPECT_EQ(center.kinds(), QStringList{u"down"_s}) << "not reported again";

    nextRound();
    EXPECT_EQ(center.kinds(), QStringList({u"down"_s, u"up"_s}));
}

TEST_F(MonitoringEngineTest, RestartingReplacesTheTask)
{
    runThrough({true});
    const QPointer<QObject> replaced = engine.findChild<PeriodicTask *>();
    ASSERT_TRUE(replaced);
    engine.startMonitoring(monitor);
    settle();
    EXPECT_EQ(engine.tasks().size(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(replaced);
    EXPECT_EQ(httpCheck.runs.size(), 2u);

    nextRound();
    EXPECT_EQ(httpCheck.runs.size(), 3u) << "the task that was replaced ended in its sleep";
}

TEST_F(MonitoringEngineTest, AResultThatDeletesItsMonitorIsHarmless)
{
    QObject::connect(&store, &MonitorStore::checksChanged, &engine, [&](const QUuid &id) {
        if (id == monitor.id && !store.monitors().isEmpty()) {
            engine.stopMonitoring(monitor);
            store.deleteMonitor(monitor.id);
        }
    });
    runThrough({true});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_TRUE(store.monitors().isEmpty());
    EXPECT_TRUE(engine.tasks().isEmpty());
}

TEST_F(MonitoringEngineTest, ChangesOfItsFieldsAreAnnounced)
{
    int running = 0;
    int tasks = 0;
    int failures = 0;
    QObject::connect(&engine, &MonitoringEngine::isRunningChanged, [&] { ++running; });
    QObject::connect(&engine, &MonitoringEngine::tasksChanged, [&] { ++tasks; });
    QObject::connect(&engine, &MonitoringEngine::consecutiveFailuresChanged, [&] { ++failures; });
    store.addMonitor(monitor);
    engine.start();
    settle();

    EXPECT_EQ(running, 1);
    EXPECT_EQ(tasks, 2) << "one for the stop that every start begins with";
    EXPECT_EQ(failures, 1);

    engine.stopMonitoring(monitor);
    engine.stopMonitoring(monitor);
    EXPECT_EQ(tasks, 4) << "also where there was nothing to stop";
}

TEST_F(MonitoringEngineTest, AThrowingOrCancelledCheckIsRecordedAsDownAndTheNextFollows)
{
    httpCheck.throwNext();
    runThrough({true});
    ASSERT_EQ(store.checks(monitor.id).size(), 1u);
    EXPECT_FALSE(store.checks(monitor.id).back().isUp);
    EXPECT_EQ(store.checks(monitor.id).back().error, u"The check could not be carried out"_s);

    httpCheck.hold();
    nextRound();
    httpCheck.cancelNext();
    settle();
    ASSERT_EQ(store.checks(monitor.id).size(), 2u);
    EXPECT_FALSE(store.checks(monitor.id).back().isUp);

    nextRound();
    httpCheck.finishNext(true);
    settle();
    ASSERT_EQ(store.checks(monitor.id).size(), 3u);
    EXPECT_TRUE(store.checks(monitor.id).back().isUp);
}

TEST_F(MonitoringEngineTest, AResultThatCannotBeHandledDoesNotEndTheMonitoring)
{
    bool shallThrow = true;
    QObject::connect(&store, &MonitorStore::checksChanged, &engine, [&] {
        if (std::exchange(shallThrow, false))
            throw std::bad_alloc();
    });
    runThrough({true});
    nextRound();
    EXPECT_EQ(store.checks(monitor.id).size(), 2u);
}

TEST_F(MonitoringEngineTest, ACheckThatFellDueInASleepIsMadeOnceAtTheWake)
{
    const Monitor second = makeMonitor(u"Second"_s);
    store.addMonitor(monitor);
    store.addMonitor(second);
    engine.start();
    settle();
    sleeper.fallDue(1);

    Q_EMIT wakeSignal.didWake();
    settle();

    EXPECT_EQ(store.checks(monitor.id).size(), 2u);
    EXPECT_EQ(store.checks(second.id).size(), 2u);
    ASSERT_EQ(sleeper.sleeps.size(), 2u);
    EXPECT_EQ(sleeper.sleeps.back().context, engine.tasks().value(monitor.id))
        << "its next interval begins now";
}

TEST_F(MonitoringEngineTest, ACheckUnderWayAtASleepIsReplacedByOneAtTheWake)
{
    httpCheck.hold();
    store.addMonitor(monitor);
    engine.start();
    settle();

    Q_EMIT wakeSignal.didWake();
    settle();
    httpCheck.finishNext(false);
    settle();
    EXPECT_TRUE(store.checks(monitor.id).empty());
    EXPECT_EQ(sleeper.sleeps.size(), 1u) << "the task goes on";

    httpCheck.finishNext(true);
    settle();
    EXPECT_EQ(store.checks(monitor.id).size(), 1u);
    EXPECT_EQ(httpCheck.runs.size(), 2u);
}

TEST_F(MonitoringEngineTest, ADroppedCheckDoesNotNotifyEither)
{
    monitor.responseTimeThreshold = Milliseconds(5);
    httpCheck.hold();
    store.addMonitor(monitor);
    engine.start();
    settle();

    Q_EMIT wakeSignal.didWake();
    settle();
    httpCheck.finishNext(true);
    settle();
    EXPECT_EQ(center.kinds(), none);

    httpCheck.finishNext(true);
    settle();
    EXPECT_EQ(center.kinds(), QStringList{u"slow"_s});
}

TEST_F(MonitoringEngineTest, NothingIsRecordedBetweenTheSleepSignalAndTheWake)
{
    runThrough({true});
    httpCheck.hold();
    nextRound();
    Q_EMIT wakeSignal.willSleep();
    httpCheck.finishNext(false);
    settle();
    EXPECT_EQ(store.checks(monitor.id).size(), 1u);
    nextRound();
    EXPECT_EQ(httpCheck.runs.size(), 2u) << "no check begins";

    Q_EMIT wakeSignal.didWake();
    settle();
    httpCheck.finishNext(false);
    settle();
    EXPECT_EQ(store.checks(monitor.id).size(), 2u);
    EXPECT_EQ(engine.consecutiveFailures().value(monitor.id), 1);
    EXPECT_EQ(httpCheck.runs.size(), 3u);
}

TEST_F(MonitoringEngineTest, ASleepThatIsAnnouncedButDoesNotComeDelaysChecksForALimitedTime)
{
    runThrough({true});
    Q_EMIT wakeSignal.willSleep();
    nextRound();
    ASSERT_EQ(httpCheck.runs.size(), 1u);
    auto *nearness = engine.findChild<QTimer *>();
    ASSERT_TRUE(nearness);
    ASSERT_TRUE(nearness->isActive());

    nearness->start(0);
    ASSERT_TRUE(waitFor([&] { return store.checks(monitor.id).size() == 2; }));
    EXPECT_EQ(sleeper.sleeps.size(), 1u);
}

class MonitoringEngineOfflineTest : public MonitoringEngineTest
{
protected:
    MonitoringEngineOfflineTest()
    {
        local.url = u"http://127.0.0.1:8080/"_s;
        paused.isEnabled = false;
        for (const Monitor &each : {monitor, local, paused})
            store.addMonitor(each);
    }
    void goOffline() { networkPresence.setPresent(false); }
    void comeBack()
    {
        networkPresence.setPresent(true);
        settle();
    }
    [[nodiscard]] std::vector<std::size_t> counts() const
    {
        return {store.checks(monitor.id).size(), store.checks(local.id).size(),
                store.checks(paused.id).size()};
    }

    Monitor local = makeMonitor(u"Local"_s);
    Monitor paused = makeMonitor(u"Paused"_s);
};

using Counts = std::vector<std::size_t>;

TEST_F(MonitoringEngineOfflineTest, ScheduledChecksOfOtherComputersWaitAndAreMadeAtOnceOnReturn)
{
    engine.start();
    settle();
    ASSERT_EQ(counts(), Counts({1, 1, 0}));
    goOffline();
    nextRound();
    EXPECT_EQ(counts(), Counts({1, 2, 0}));
    nextRound();
    EXPECT_EQ(counts(), Counts({1, 3, 0}));
    EXPECT_EQ(center.kinds(), none);

    comeBack();
    EXPECT_EQ(counts(), Counts({2, 4, 0}));
    EXPECT_EQ(sleeper.sleeps.size(), 2u);
    nextRound();
    EXPECT_EQ(counts(), Counts({3, 5, 0}));
}

TEST_F(MonitoringEngineOfflineTest, FirstChecksWaitToo)
{
    goOffline();
    engine.start();
    settle();
    EXPECT_EQ(counts(), Counts({0, 1, 0}));
    comeBack();
    EXPECT_EQ(counts(), Counts({1, 2, 0}));
}

TEST_F(MonitoringEngineOfflineTest, ATaskThatStillSleepsIsCheckedOnReturnAndKeepsItsTiming)
{
    engine.start();
    settle();
    goOffline();
    comeBack();
    EXPECT_EQ(counts(), Counts({2, 2, 0}));
    EXPECT_EQ(sleeper.sleeps.size(), 2u);
}

TEST_F(MonitoringEngineOfflineTest, CheckNowChecksEvenOffline)
{
    goOffline();
    httpCheck.willBe({false});
    engine.checkNow(monitor);
    settle();
    ASSERT_EQ(counts(), Counts({1, 0, 0}));
    EXPECT_FALSE(store.checks(monitor.id).back().isUp);
}

TEST_F(MonitoringEngineOfflineTest, FailuresOfChecksInterruptedByTheAbsenceAreDropped)
{
    httpCheck.hold();
    engine.start();
    settle();
    goOffline();
    httpCheck.finishNext(false);
    httpCheck.finishNext(false);
    settle();
    EXPECT_EQ(counts(), Counts({0, 1, 0})) << "a failure of this computer's own server counts";
    EXPECT_EQ(engine.consecutiveFailures().value(monitor.id), 0);
    EXPECT_EQ(sleeper.sleeps.size(), 2u);
}

TEST_F(MonitoringEngineOfflineTest, AnswersThatStillArriveAreRecorded)
{
    httpCheck.hold();
    engine.start();
    settle();
    goOffline();
    httpCheck.finishNext(true);
    settle();
    EXPECT_EQ(counts(), Counts({1, 0, 0}));
}

TEST_F(MonitoringEngineOfflineTest, ChecksUnderWayOnReturnAreReplacedByNewOnes)
{
    httpCheck.hold();
    engine.start();
    settle();
    goOffline();
    comeBack();
    httpCheck.finishNext(false);
    httpCheck.finishNext(false);
    settle();
    EXPECT_EQ(counts(), Counts({0, 0, 0}));
    httpCheck.finishNext(true);
    httpCheck.finishNext(true);
    settle();
    EXPECT_EQ(counts(), Counts({1, 1, 0}));
}

TEST_F(MonitoringEngineOfflineTest, ChecksOfAWakeWaitToo)
{
    engine.start();
    settle();
    goOffline();
    sleeper.fallDue(2);
    Q_EMIT wakeSignal.didWake();
    settle();
    EXPECT_EQ(counts(), Counts({1, 2, 0}));
    comeBack();
    EXPECT_EQ(counts(), Counts({2, 3, 0}));
}

TEST_F(MonitoringEngineOfflineTest, AWakeWhileOfflineLeavesOtherComputersUnchecked)
{
    engine.start();
    settle();
    goOffline();
    Q_EMIT wakeSignal.didWake();
    settle();
    EXPECT_EQ(counts(), Counts({1, 2, 0}));
}

TEST_F(MonitoringEngineOfflineTest, NothingBeginsOnReturnBeforeTheEngineHasStarted)
{
    goOffline();
    comeBack();
    EXPECT_EQ(counts(), Counts({0, 0, 0}));
}

} // namespace ostrel::test
