#include "WindowExposure.h"

#include "WaitFor.h"

#include <gtest/gtest.h>

namespace ostrel::test {
namespace {

class WindowExposureTest : public testing::Test
{
protected:
    void SetUp() override
    {
        exposure.setWindow(&window);
        window.show();
        ASSERT_TRUE(becomes(true));
    }
    [[nodiscard]] bool becomes(bool isExposed)
    {
        return waitFor([&] { return exposure.isExposed() == isExposed; });
    }

    QQuickWindow window;
    WindowExposure exposure;
};

TEST_F(WindowExposureTest, AWindowThatIsHiddenIsNotExposedUntilItIsShownAgain)
{
    window.hide();
    EXPECT_TRUE(becomes(false));
    window.show();
    EXPECT_TRUE(becomes(true));
}

TEST_F(WindowExposureTest, AWindowThatIsClosedIsNotExposedUntilItIsShownAgain)
{
    window.close();
    EXPECT_TRUE(becomes(false));
    window.show();
    EXPECT_TRUE(becomes(true));
}

TEST_F(WindowExposureTest, WithoutAWindowNothingIsExposed)
{
    exposure.setWindow(nullptr);
    EXPECT_FALSE(exposure.isExposed());
}

} // namespace
} // namespace ostrel::test
