#include "DetachedThread.h"

#include "WaitFor.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace ostrel::test {

TEST(DetachedThreadTest, IsRunningUntilItsWorkIsDoneAndDestroyed)
{
    EXPECT_FALSE(isAnyDetachedThreadAtWork());
    std::promise<void> end;
    const auto held = std::make_shared<int>(0);
    startDetached([held, mayEnd = end.get_future().share()] { mayEnd.wait(); });
    EXPECT_TRUE(isAnyDetachedThreadAtWork());
    end.set_value();
    EXPECT_TRUE(waitFor([] { return !isAnyDetachedThreadAtWork(); }));
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace ostrel::test
