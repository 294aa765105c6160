#include "CatmullRom.h"

#include <gtest/gtest.h>

#include <cmath>
#include <span>

namespace ostrel::test {

namespace {

void expectNear(QPointF actual, QPointF expected)
{
    EXPECT_NEAR(actual.x(), expected.x(), 1e-9);
    EXPECT_NEAR(actual.y(), expected.y(), 1e-9);
}

QPointF lerp(QPointF a, QPointF b, double ta, double tb, double t)
{
    return a * ((tb - t) / (tb - ta)) + b * ((t - ta) / (tb - ta));
}

/// The curve between the second and third of four points by its definition: Barry and Goldman's
/// pyramid of interpolations.
QPointF pyramid(std::span<const QPointF, 4> p, double alpha, double share)
{
    std::vector<double> t = {0};
    for (std::size_t i = 1; i < 4; ++i) {
        const QPointF d = p[i] - p[i - 1];
        t.push_back(t.back() + std::pow(std::hypot(d.x(), d.y()), alpha));
    }
    const double at = t[1] + share * (t[2] - t[1]);
    const QPointF a1 = lerp(p[0], p[1], t[0], t[1], at);
    const QPointF a2 = lerp(p[1], p[2], t[1], t[2], at);
    const QPointF a3 = lerp(p[2], p[3], t[2], t[3], at);
    return lerp(lerp(a1, a2, t[0], t[2], at), lerp(a2, a3, t[1], t[3], at), t[1], t[2], at);
}

QPointF bezier(QPointF start, const BezierSegment &s, double t)
{
    const double u = 1 - t;
    return start * (u * u * u) + s.control1 * (3 * u * u * t) + s.control2 * (3 * u * t * t) +
           s.end * (t * t * t);
}

bool isFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

} // namespace

TEST(CatmullRomTest, FewerThanTwoPointsHaveNoCurve)
{
    EXPECT_TRUE(catmullRomCurve({}, 0.5).empty());
    EXPECT_TRUE(catmullRomCurve(std::vector{QPointF(1, 2)}, 0.5).empty());
}

TEST(CatmullRomTest, TwoPointsAreAStraightLine)
{
    const auto curve = catmullRomCurve(std::vector{QPointF(0, 0), QPointF(10, 20)}, 0.5);
    ASSERT_EQ(curve.size(), 1U);
    expectNear(curve[0].control1, {0, 0});
    expectNear(curve[0].control2, {10, 20});
    expectNear(curve[0].end, {10, 20});
}

TEST(CatmullRomTest, EqualDistancesGiveTheUniformCurve)
{
    const std::vector points = {QPointF(0, 0), QPointF(3, 4), QPointF(6, 0), QPointF(9, 4)};
    const auto curve = catmullRomCurve(points, 0.5);
    ASSERT_EQ(curve.size(), 3U);
    expectNear(curve[1].control1, {4, 4});
    expectNear(curve[1].control2, {5, 0});
}

TEST(CatmullRomTest, FollowsTheDefinitionBetweenUnequalDistances)
{
    const std::vector points = {QPointF(0, 0),  QPointF(1, 5),  QPointF(9, 6),
                                QPointF(11, 1), QPointF(12, 8), QPointF(20, 3)};
    for (const double alpha : {0.0, 0.5, 1.0}) {
        const auto curve = catmullRomCurve(points, alpha);
        ASSERT_EQ(curve.size(), 5U);
        for (std::size_t i = 1; i < 4; ++i) {
            const auto around = std::span(points).subspan(i - 1).first<4>();
            for (const double share : {0.1, 0.5, 0.8})
                expectNear(bezier(points[i], curve[i], share), pyramid(around, alpha, share));
        }
    }
}

TEST(CatmullRomTest, EachEndIsItsOwnNeighbour)
{
    const std::vector points = {QPointF(0, 0), QPointF(1, 5), QPointF(9, 6)};
    const auto curve = catmullRomCurve(points, 0.5);
    expectNear(curve.front().control1, points.front());
    expectNear(curve.back().control2, points.back());
}

TEST(CatmullRomTest, PassesThroughEveryPoint)
{
    const std::vector points = {QPointF(0, 3), QPointF(1, 9), QPointF(2, 2), QPointF(8, 4)};
    const auto curve = catmullRomCurve(points, 0.5);
    ASSERT_EQ(curve.size(), points.size() - 1);
    for (std::size_t i = 0; i < curve.size(); ++i)
        EXPECT_EQ(curve[i].end, points[i + 1]);
}

TEST(CatmullRomTest, CoincidingPointsStayFinite)
{
    const QPointF here(5, 5);
    for (const auto &points :
         {std::vector{here, here}, std::vector{here, here, here, here},
          std::vector{QPointF(0, 0), here, here, QPointF(9, 0)},
          std::vector{here, here, QPointF(9, 0)}, std::vector{QPointF(0, 0), here, here}}) {
        const auto curve = catmullRomCurve(points, 0.5);
        EXPECT_EQ(curve.size(), points.size() - 1);
        for (const auto &segment : curve) {
            EXPECT_TRUE(isFinite(segment.control1));
            EXPECT_TRUE(isFinite(segment.control2));
        }
    }
}

} // namespace ostrel::test
