#include "StatusLabel.h"

#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

TEST(StatusLabelTest, ThePillsWordsAreInCapitals)
{
    EXPECT_EQ(pillWord(MonitorStatus::up), u"UP"_s);
    EXPECT_EQ(pillWord(MonitorStatus::down), u"DOWN"_s);
    EXPECT_EQ(pillWord(MonitorStatus::paused), u"PAUSED"_s);
    EXPECT_EQ(pillWord(MonitorStatus::pending), u"PENDING"_s);
}

TEST(StatusLabelTest, PausedHasTheMoon)
{
    EXPECT_EQ(statusSymbol(MonitorStatus::paused), u"moon.circle.fill"_s);
}

} // namespace ostrel::test
