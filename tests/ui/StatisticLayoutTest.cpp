#include "StatisticLayout.h"

#include "MonitorDetail.h"
#include "Printers.h"
#include "ThemeFonts.h"

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

TEST(StatisticLayoutTest, AnAverageOfTenSecondsFitsTheSmallestWindow)
{
    constexpr qreal room = 82;
    const int size =
        StatisticLayout::valueSize(statistics({QStringLiteral("10856")}), room, unitGap);
    EXPECT_GT(size, StatisticLayout::smallestValue);
    EXPECT_LE(
        ThemeFonts::textWidth(QStringLiteral("10856"), ThemeFonts::face(QFont::Bold, size, 0)) +
            unitGap +
            ThemeFonts::textWidth(QStringLiteral("ms"), ThemeFonts::face(QFont::Medium, 14)),
        room);
}

TEST(StatisticLayoutTest, NoValueIsSmallerThanTheSmallest)
{
    EXPECT_EQ(StatisticLayout::valueSize(statistics({QStringLiteral("1234567890")}), 80, unitGap),
              StatisticLayout::smallestValue);
}

} // namespace ostrel::test
