#include "LimitGuard.h"
#include "Platform.h"

#include <gtest/gtest.h>

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

} // namespace

} // namespace ostrel::test
