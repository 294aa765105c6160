#include "MonitorStatusEnum.h"

#include "ThemeView.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

TEST(MonitorStatusEnumTest, StatusesHaveTheSameNumbersInViewsAndRecords)
{
    ThemeView view("");
    struct
    {
        const char *name;
        MonitorStatus status;
    } const table[] = {
        {"Up", MonitorStatus::up},
        {"Down", MonitorStatus::down},
        {"Paused", MonitorStatus::paused},
        {"Pending", MonitorStatus::pending},
    };
    for (const auto &[name, status] : table)
        EXPECT_EQ(view.evaluate(u"MonitorStatus.%1"_s.arg(QLatin1String(name))),
                  QVariant(static_cast<int>(status)))
            << name;
}

} // namespace ostrel::test
