#include "StatisticLayout.h"

#include "MonitorDetail.h"
#include "Printers.h"
#include "ThemeFonts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

constexpr qreal unitGap = 3;

QVariantList statistics(const QStringList &values)
{
    QVariantList list;
    for (const QString &value : values)
        list += QVariant::fromValue(Statistic{.value = value, .unit = u"ms"_s});
    return list;
}

} // namespace

TEST(StatisticLayoutTest, ValuesAreLargeWhereAllFit)
{
    EXPECT_EQ(StatisticLayout::valueSize(statistics({u"192"_s, u"100"_s}), 113, unitGap),
              StatisticLayout::largestValue);
    EXPECT_EQ(StatisticLayout::valueSize({}, 0, unitGap), StatisticLayout::largestValue);
}

TEST(StatisticLayoutTest, TheWidestValueMakesAllSmaller)
{
    const int size = StatisticLayout::valueSize(statistics({u"12345"_s, u"100"_s}), 100, unitGap);
    EXPECT_LT(size, StatisticLayout::largestValue);
    EXPECT_GT(size, StatisticLayout::smallestValue);
}

TEST(StatisticLayoutTest, AnAverageOfTenSecondsFitsTheSmallestWindow)
{
    constexpr qreal room = 82;
    const int size = StatisticLayout::valueSize(statistics({u"10856"_s}), room, unitGap);
    EXPECT_GT(size, StatisticLayout::smallestValue);
    EXPECT_LE(ThemeFonts::textWidth(u"10856"_s, ThemeFonts::face(QFont::Bold, size, 0)) + unitGap +
                  ThemeFonts::textWidth(u"ms"_s, ThemeFonts::face(QFont::Medium, 14)),
              room);
}

TEST(StatisticLayoutTest, NoValueIsSmallerThanTheSmallest)
{
    EXPECT_EQ(StatisticLayout::valueSize(statistics({u"1234567890"_s}), 80, unitGap),
              StatisticLayout::smallestValue);
}

} // namespace ostrel::test
