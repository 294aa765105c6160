#include "OstrelDesktop.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

namespace ostrel::test {

TEST(Explore, Empty)
{
    OstrelDesktop desktop;
    ASSERT_TRUE(desktop.start()) << qPrintable(describe(desktop.items()));
    QElapsedTimer t; t.start();
    const auto items = desktop.items();
    qInfo("%lld ms", t.elapsed());
    qInfo("%s", qPrintable(describe(items)));
    EXPECT_TRUE(desktop.user.press("ctrl+n"));
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::pushButton, QStringLiteral("Cancel")));
    qInfo("%s", qPrintable(describe(desktop.items())));
    EXPECT_EQ(desktop.program.stop(), 0);
}

} // namespace ostrel::test
