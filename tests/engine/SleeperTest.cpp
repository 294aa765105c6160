#include "Sleeper.h"

#include "WaitFor.h"

#include <QElapsedTimer>
#include <QObject>

#include <gtest/gtest.h>

#include <memory>

namespace ostrel::test {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

TEST(TimerSleeperTest, WakesOnceAfterTheDurationAndNeverEarly)
{
    TimerSleeper sleeper;
    QObject context;
    int wakes = 0;
    QElapsedTimer elapsed;
    elapsed.start();
    sleeper.sleep(Seconds(0.2), &context, [&] { ++wakes; });

    ASSERT_TRUE(waitFor([&] { return wakes > 0; }));
    EXPECT_GE(milliseconds(elapsed.elapsed()), 200ms);
    EXPECT_FALSE(waitFor([&] { return wakes > 1; }, 300ms));
}

TEST(TimerSleeperTest, NoSleepIsShorterThanItsBound)
{
    for (const double seconds : {0.0, -5.0, 1e-9}) {
        TimerSleeper sleeper;
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
    TimerSleeper sleeper;
    QObject context;
    bool isAwake = false;
    for (const double seconds : {30.0 * 24 * 3600, 3e8, 1e12, 1e300})
        sleeper.sleep(Seconds(seconds), &context, [&] { isAwake = true; });
    EXPECT_FALSE(waitFor([&] { return isAwake; }, 300ms));
}

TEST(TimerSleeperTest, AContextThatDiesIsNotWoken)
{
    TimerSleeper sleeper;
    auto context = std::make_unique<QObject>();
    bool isAwake = false;
    sleeper.sleep(Seconds(0.1), context.get(), [&] { isAwake = true; });
    context.reset();
    EXPECT_FALSE(waitFor([&] { return isAwake; }, 300ms));
}

} // namespace ostrel::test
