#include "LineBand.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ostrel::test {

TEST(LineBandTest, LevelLineIsARectangleOfItsWidth)
{
    const std::vector points = {QPointF(0, 10), QPointF(1, 10), QPointF(4, 10)};
    EXPECT_EQ(lineBand(points, 2),
              (std::vector{QPointF(0, 9), QPointF(1, 9), QPointF(2, 9), QPointF(3, 9),
                           QPointF(4, 9), QPointF(4, 11), QPointF(3, 11), QPointF(2, 11),
                           QPointF(1, 11), QPointF(0, 11)}));
}

TEST(LineBandTest, EndsWithTheLineEvenIfItsLengthIsNoMultipleOfItsWidth)
{
    for (const double width : {1.0, 2.0, 5.0}) {
        const auto outline = lineBand(std::vector{QPointF(2, 0), QPointF(5.5, 0)}, width);
        const auto [left, right] = std::ranges::minmax(outline, {}, &QPointF::x);
        EXPECT_EQ(left.x(), 2) << width;
        EXPECT_EQ(right.x(), 5.5) << width;
    }
}

TEST(LineBandTest, EveryPeakAndTroughIsCovered)
{
    std::vector<QPointF> points;
    for (int i = 0; i < 1000; ++i)
        points.emplace_back(i * 0.3, i == 500 ? 5 : i == 600 ? 95 : 50 + i % 7);
    const auto outline = lineBand(points, 2.5);
    const auto [top, bottom] = std::ranges::minmax(outline, {}, &QPointF::y);
    EXPECT_DOUBLE_EQ(top.y(), 5 - 1.25);
    EXPECT_NEAR(top.x(), 150, 1.25);
    EXPECT_DOUBLE_EQ(bottom.y(), 95 + 1.25);
    EXPECT_NEAR(bottom.x(), 180, 1.25);
}

TEST(LineBandTest, FollowsTheLineAcrossAGap)
{
    const auto outline = lineBand(std::vector{QPointF(0, 0), QPointF(100, 100)}, 2);
    // In the middle, the line goes from 49 to 51 within half its width.
    EXPECT_DOUBLE_EQ(outline[50].y(), 48);
    EXPECT_DOUBLE_EQ(outline[outline.size() - 51].y(), 52);
}

TEST(LineBandTest, EqualAbscissasKeepTheirWholeRange)
{
    const std::vector points = {QPointF(0, 5), QPointF(2, 1), QPointF(2, 9), QPointF(4, 5)};
    const auto outline = lineBand(points, 2);
    EXPECT_DOUBLE_EQ(outline[2].y(), 0);
    EXPECT_DOUBLE_EQ(outline[outline.size() - 3].y(), 10);
}

} // namespace ostrel::test
