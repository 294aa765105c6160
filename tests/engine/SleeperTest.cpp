#include "Sleeper.h"

#include "WaitFor.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace ostrel::test {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

ContinuousTime steadyNow()
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

} // namespace

TEST(TimerSleeperTest, WakesOnceAfterTheDurationAndNeverEarly)
{
    TimerSleeper sleeper(&steadyNow);
    QObject context;
    int wakes = 0;
    QElapsedTimer elapsed;
    elapsed.start();
    sleeper.sleep(Seconds(0.2), &context, [&] { ++wakes; });

    ASSERT_TRUE(waitFor([&] { return wakes > 0; }));
    EXPECT_GE(milliseconds(elapsed.elapsed()), 200ms);
    EXPECT_FALSE(waitFor([&] { return wakes > 1; }, 300ms));
}

TEST(TimerSleeperTest, NoSleepIsShorterThanTheMinimum)
{
    for (const double seconds : {0.0, -5.0, 1e-9}) {
        TimerSleeper sleeper(&steadyNow);
        QObject context;
        bool isAwake = false;
        QElapsedTimer elapsed;
        elapsed.start();
        sleeper.sleep(Seconds(seconds), &context, [&] { isAwake = true; });
        EXPECT_FALSE(isAwake);
        ASSERT_TRUE(waitFor([&] { return isAwake; })) << seconds;
        EXPECT_GE(milliseconds(elapsed.elapsed()), 100ms) << seconds;
    }
}

TEST(TimerSleeperTest, YearsDoNotOverflowIntoAnEarlyWake)
{
    TimerSleeper sleeper(&steadyNow);
    QObject context;
    bool isAwake = false;
    for (const double seconds : {30.0 * 24 * 3600, 3e8, 1e12, 1e300})
        sleeper.sleep(Seconds(seconds), &context, [&] { isAwake = true; });
    EXPECT_FALSE(waitFor([&] { return isAwake; }, 300ms));
}

TEST(TimerSleeperTest, AContextThatDiesIsNotWoken)
{
    TimerSleeper sleeper(&steadyNow);
    auto context = std::make_unique<QObject>();
    bool isAwake = false;
    sleeper.sleep(Seconds(0.1), context.get(), [&] { isAwake = true; });
    context.reset();
    EXPECT_FALSE(waitFor([&] { return isAwake; }, 300ms));
}

TEST(TimerSleeperTest, SleepsThatFellDueInASuspendEndAtOnceAndOthersKeepTheirTime)
{
    ContinuousTime slept{0};
    TimerSleeper sleeper([&] { return steadyNow() + slept; });
    QObject context;
    int due = 0;
    int later = 0;
    sleeper.sleep(Seconds(3600), &context, [&] { ++due; });
    sleeper.sleep(Seconds(3600.3), &context, [&] { ++later; });
    EXPECT_FALSE(waitFor([&] { return due + later > 0; }, 50ms));

    slept = std::chrono::hours(1);
    sleeper.catchUp();
    EXPECT_EQ(due, 1);
    EXPECT_EQ(later, 0);
    ASSERT_TRUE(waitFor([&] { return later > 0; }));
    EXPECT_EQ(due, 1);
}

TEST(TimerSleeperTest, SleepsEndInTheOrderOfTheirDueTimes)
{
    TimerSleeper sleeper(&steadyNow);
    QObject context;
    QList<int> ended;
    for (const int tenths : {3, 1, 2})
        sleeper.sleep(Seconds(tenths / 10.0), &context, [&, tenths] { ended += tenths; });
    ASSERT_TRUE(waitFor([&] { return ended.size() == 3; }));
    EXPECT_EQ(ended, QList<int>({1, 2, 3}));
}

TEST(TimerSleeperTest, ASleepMayBeginInAnothersCallback)
{
    TimerSleeper sleeper(&steadyNow);
    QObject context;
    int ends = 0;
    std::function<void()> again = [&] {
        if (++ends < 3)
            sleeper.sleep(Seconds(0), &context, again);
    };
    sleeper.sleep(Seconds(0), &context, again);
    EXPECT_TRUE(waitFor([&] { return ends == 3; }));
}

} // namespace ostrel::test
