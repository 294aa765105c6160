#include "AppActions.h"

#include "MonitorCommands.h"
#include "Printers.h"
#include "ScriptedEngine.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

class AppActionsTest : public testing::Test, protected FolderStore, protected ScriptedEngine
{
protected:
    AppActionsTest()
        : ScriptedEngine(store)
    {
        store.addMonitor(shop);
        engine.start();
    }

    [[nodiscard]] bool isEnabled() const { return store.monitor(shop.id)->isEnabled; }
    [[nodiscard]] bool isWatched() const { return engine.tasks().contains(shop.id); }

    Monitor shop = makeMonitor();
    MonitorCommands commands{store, engine};
    AppActions actions{store, commands};
};

} // namespace

TEST_F(AppActionsTest, CheckNowChecksAndItsResultArrivesThroughTheStore)
{
    ASSERT_TRUE(waitFor([&] { return store.checks(shop.id).size() == 1; }));
    actions.checkNow(shop.id);
    EXPECT_TRUE(waitFor([&] { return store.checks(shop.id).size() == 2; }));
    EXPECT_TRUE(isWatched());
}

TEST_F(AppActionsTest, PauseStopsTheChecksAtOnce)
{
    actions.togglePause(shop.id);
    EXPECT_FALSE(isEnabled());
    EXPECT_FALSE(isWatched());
}

TEST_F(AppActionsTest, ResumeChecksAtOnceOnAFreshSchedule)
{
    ASSERT_TRUE(waitFor([&] { return httpCheck.runs.size() == 1; }));
    actions.togglePause(shop.id);
    actions.togglePause(shop.id);
    EXPECT_TRUE(isEnabled());
    EXPECT_TRUE(isWatched());
    EXPECT_TRUE(waitFor([&] { return httpCheck.runs.size() == 2; }));
}

TEST_F(AppActionsTest, DeleteStopsTheChecksAndForgetsTheMonitor)
{
    actions.deleteMonitor(shop.id);
    EXPECT_FALSE(isWatched());
    EXPECT_TRUE(store.monitors().isEmpty());
}

TEST_F(AppActionsTest, ActionsOnADeletedMonitorDoNothing)
{
    actions.deleteMonitor(shop.id);
    actions.checkNow(shop.id);
    actions.togglePause(shop.id);
    actions.deleteMonitor(shop.id);
    EXPECT_FALSE(isWatched());
    EXPECT_TRUE(store.monitors().isEmpty());
}

} // namespace ostrel::test
