#include "StatisticLayout.h"

#include "MonitorDetail.h"
#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

constexpr qreal unitGap = 3;

QVariantList statistics(const QStringList &values)
{
    QVariantList list;
    for (const QString &value : values)
        list += QVariant::fromValue(Statistic{.value = value, .unit = QStringLiteral("ms")});
    return list;
}

} // namespace

TEST(StatisticLayoutTest, ValuesAreLargeWhereAllFit)
{
    EXPECT_EQ(StatisticLayout::valueSize(statistics({QStringLiteral("192"), QStringLiteral("100")}),
                                         113, unitGap),
              StatisticLayout::largestValue);
    EXPECT_EQ(StatisticLayout::valueSize({}, 0, unitGap), StatisticLayout::largestValue);
}

TEST(StatisticLayoutTest, TheWidestValueMakesAllSmaller)
{
    const int size = StatisticLayout::valueSize(
        statistics({QStringLiteral("12345"), QStringLiteral("100")}), 100, unitGap);
    EXPECT_LT(size, StatisticLayout::largestValue);
    EXPECT_GT(size, StatisticLayout::smallestValue);
}

TEST(StatisticLayoutTest, NoValueIsSmallerThanTheSmallest)
{
    EXPECT_EQ(StatisticLayout::valueSize(statistics({QStringLiteral("1234567890")}), 80, unitGap),
              StatisticLayout::smallestValue);
}

} // namespace ostrel::test
