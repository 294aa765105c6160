#include "StatusLabel.h"

#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel::test {

TEST(StatusLabelTest, ThePillsWordsAreCapitals)
{
    EXPECT_EQ(pillWord(MonitorStatus::up), QStringLiteral("UP"));
    EXPECT_EQ(pillWord(MonitorStatus::down), QStringLiteral("DOWN"));
    EXPECT_EQ(pillWord(MonitorStatus::paused), QStringLiteral("PAUSED"));
    EXPECT_EQ(pillWord(MonitorStatus::pending), QStringLiteral("PENDING"));
}

TEST(StatusLabelTest, PausedHasTheMoon)
{
    EXPECT_EQ(statusSymbol(MonitorStatus::paused), QStringLiteral("moon.circle.fill"));
}

} // namespace ostrel::test
