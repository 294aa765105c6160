#include "HaloClock.h"

#include "WaitFor.h"

#include <QList>

#include <gtest/gtest.h>

#include <cmath>

namespace ostrel::test {

namespace {

/// A clock with one halo, and what it has shown.
struct Halo
{
    Halo()
    {
        QObject::connect(&clock, &HaloClock::swellChanged, &clock,
                         [this] { shown += clock.swell(); });
        clock.follow();
    }

    HaloClock clock;
    QList<double> shown = {0};
};

} // namespace

TEST(HaloClockTest, SwellsAndShrinksWholly)
{
    Halo halo;
    EXPECT_TRUE(waitFor([&] { return halo.clock.swell() > 0.94; }));
    EXPECT_TRUE(waitFor([&] { return halo.clock.swell() < 0.06; }));
    halo.clock.leave();
    EXPECT_EQ(halo.clock.swell(), 0);
}

TEST(HaloClockTest, ShowsNoFrameThatLooksLikeTheOneBefore)
{
    constexpr double oneShade = 1.0 / 36;
    Halo halo;
    EXPECT_TRUE(waitFor([&] { return halo.clock.swell() > 0.94; }));
    EXPECT_TRUE(waitFor([&] { return halo.clock.swell() < 0.5; }));
    for (qsizetype frame = 1; frame < halo.shown.size(); ++frame)
        EXPECT_GE(std::abs(halo.shown[frame] - halo.shown[frame - 1]), oneShade) << frame;
}

} // namespace ostrel::test
