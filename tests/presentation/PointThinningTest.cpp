#include "PointThinning.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace ostrel::test {

namespace {

struct ThinningCase
{
    const char *name;
    std::vector<QPointF> points;
    std::vector<QPointF> thinned;
};

class PointThinningTest : public testing::TestWithParam<ThinningCase>
{
};

std::vector<QPointF> levelPoints(int count, double distance)
{
    std::vector<QPointF> points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(i * distance, 7);
    return points;
}

std::vector<QPointF> zigzag(int count, double distance)
{
    std::vector<QPointF> points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(i * distance, i * 7 % 13);
    return points;
}

} // namespace

// Sections are 2 wide and begin at 0.
TEST_P(PointThinningTest, KeepsTheExtremesOfEachSection)
{
    const auto &c = GetParam();
    EXPECT_EQ(thinnedPoints(c.points, 0, 2), c.thinned);
}

INSTANTIATE_TEST_SUITE_P(
    Table, PointThinningTest,
    testing::Values(ThinningCase{"NoPoint", {}, {}}, ThinningCase{"OnePoint", {{1, 5}}, {{1, 5}}},
                    ThinningCase{"TwoInEachSection",
                                 {{0, 1}, {1, 2}, {2, 3}, {3, 2}, {4, 1}, {5.9, 2}},
                                 {{0, 1}, {1, 2}, {2, 3}, {3, 2}, {4, 1}, {5.9, 2}}},
                    ThinningCase{"OneMoreInTheMiddleSection",
                                 {{0, 1}, {1, 2}, {2, 3}, {2.5, 2.5}, {3, 2}, {4, 1}, {5.9, 2}},
                                 {{0, 1}, {1, 2}, {2, 3}, {3, 2}, {4, 1}, {5.9, 2}}},
                    ThinningCase{"ABorderBelongsToTheSectionOnItsRight",
                                 {{0, 1}, {2, 9}, {2.5, 2}, {3, 5}, {4, 8}, {6, 1}},
                                 {{0, 1}, {2, 9}, {2.5, 2}, {4, 8}, {6, 1}}},
                    ThinningCase{"LowestBeforeHighest",
                                 {{0, 0}, {2, 5}, {2.2, 9}, {2.4, 4}, {2.6, 1}, {2.8, 5}, {4, 0}},
                                 {{0, 0}, {2.2, 9}, {2.6, 1}, {4, 0}}},
                    ThinningCase{"HighestBeforeLowest",
                                 {{0, 0}, {2, 5}, {2.2, 1}, {2.4, 4}, {2.6, 9}, {2.8, 5}, {4, 0}},
                                 {{0, 0}, {2.2, 1}, {2.6, 9}, {4, 0}}},
                    ThinningCase{"EqualValuesKeepTheFirstAndTheLast",
                                 {{0, 0}, {2, 5}, {2.2, 5}, {2.4, 5}, {3, 5}, {4, 0}},
                                 {{0, 0}, {2, 5}, {3, 5}, {4, 0}}},
                    ThinningCase{
                        "ALoneSpike",
                        {{0, 7}, {0.5, 7}, {1, 7}, {2, 7}, {2.5, -90}, {3, 7}, {4, 7}, {5, 7}},
                        {{0, 7}, {1, 7}, {2.5, -90}, {3, 7}, {4, 7}, {5, 7}}},
                    ThinningCase{"AllInOneSection",
                                 {{0.1, 5}, {0.2, 6}, {0.3, 1}, {0.4, 9}, {0.5, 3}, {0.6, 4}},
                                 {{0.1, 5}, {0.3, 1}, {0.4, 9}, {0.6, 4}}},
                    ThinningCase{"AllAtOneAbscissa",
                                 {{1, 5}, {1, 6}, {1, 1}, {1, 9}, {1, 4}},
                                 {{1, 5}, {1, 1}, {1, 9}, {1, 4}}},
                    ThinningCase{"EndsThatAreExtremesStandOnce",
                                 {{0.1, 1}, {0.2, 5}, {0.3, 6}, {0.4, 9}},
                                 {{0.1, 1}, {0.4, 9}}}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(PointThinningBoundsTest, SectionsAreCountedFromTheLeftEnd)
{
    const std::vector<QPointF> points = {{33.5, 0}, {34, 1}, {34.5, 2}, {35, 3}, {35.5, 4}};
    EXPECT_EQ(thinnedPoints(points, 33, 2).size(), 4U);
    EXPECT_EQ(thinnedPoints(points, 33.5, 2).size(), 3U);
}

TEST(PointThinningBoundsTest, NoSectionHasMoreThanTwoPointsButThoseOfTheEnds)
{
    for (const double distance : {0.01, 0.3, 0.99, 1.0, 1.01, 3.0}) {
        const auto points = zigzag(2000, distance);
        const auto thinned = thinnedPoints(points, 0, 2);
        EXPECT_LE(static_cast<double>(thinned.size()), points.back().x() + 2 + 2) << distance;
        EXPECT_TRUE(std::ranges::is_sorted(thinned, {}, &QPointF::x)) << distance;
        EXPECT_EQ(thinned.front(), points.front()) << distance;
        EXPECT_EQ(thinned.back(), points.back()) << distance;
    }
}

TEST(PointThinningBoundsTest, NothingIsLostWhilePointsAreApart)
{
    EXPECT_EQ(thinnedPoints(zigzag(2000, 1), 0, 2), zigzag(2000, 1));
    EXPECT_EQ(thinnedPoints(levelPoints(3, 0.9), 0, 2).size(), 2U);
}

} // namespace ostrel::test
