#include "LimitGuard.h"
#include "Platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

namespace ostrel::test {

namespace {

rlimit currentLimit()
{
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    return limit;
}

TEST(DescriptorLimitTest, IsRaisedAsFarAsTheSystemAllows)
{
    const LimitGuard guard(512);
    raiseDescriptorLimit();
    EXPECT_GT(currentLimit().rlim_max, rlim_t(512));
    EXPECT_EQ(currentLimit().rlim_cur, currentLimit().rlim_max);
}

TEST(ThreadPriorityTest, IsLoweredOnlyForTheCallingThread)
{
    constexpr int lowPriority = 10;
    const int before = getpriority(PRIO_PROCESS, 0);
    int lowered = before;
    std::thread([&] {
        lowerThreadPriority();
        lowered = getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
    }).join();
    EXPECT_EQ(lowered, std::max(before, lowPriority));
    EXPECT_EQ(getpriority(PRIO_PROCESS, 0), before);
}

} // namespace

} // namespace ostrel::test
