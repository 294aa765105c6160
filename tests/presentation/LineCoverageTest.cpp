#include "LineCoverage.h"

#include "CatmullRom.h"

#include <QPainter>
#include <QPainterPath>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace ostrel::test {

namespace {

constexpr QRect area(0, 0, 200, 100);
constexpr double penWidth = 2.5;

using Points = std::vector<QPointF>;

QImage pictureOf(const PixelCoverage &coverage)
{
    return coverage.tinted(std::vector<QRgb>(static_cast<std::size_t>(area.height()), 0xff000000));
}

int alphaAt(const PixelCoverage &coverage, int x, int y)
{
    return qAlpha(pictureOf(coverage).pixel(x, y));
}

QPainterPath curveThrough(const Points &points)
{
    QPainterPath path(points.front());
    for (const auto &segment : catmullRomCurve(points, 0.5))
        path.cubicTo(segment.control1, segment.control2, segment.end);
    return path;
}

QPolygonF flattened(const QPainterPath &path)
{
    constexpr double precision = 4;
    const auto fine = path.toSubpathPolygons(QTransform::fromScale(precision, precision));
    return QTransform::fromScale(1 / precision, 1 / precision).map(fine.front());
}

QImage stroked(const QPainterPath &path)
{
    QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(path, QPen(Qt::black, penWidth, Qt::SolidLine, Qt::FlatCap));
    return image;
}

struct Difference
{
    double mean = 0;    ///< Of a pixel's alpha.
    int strongOnes = 0; ///< Pixels that differ by more than a quarter.
};

Difference differenceOf(const QImage &one, const QImage &other)
{
    Difference difference;
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x) {
            const int delta = std::abs(qAlpha(one.pixel(x, y)) - qAlpha(other.pixel(x, y)));
            difference.mean += delta / double(area.width() * area.height());
            difference.strongOnes += delta > 64 ? 1 : 0;
        }
    }
    return difference;
}

struct LineCase
{
    const char *name;
    Points points;
};

Points noise(double distance, double height)
{
    std::mt19937 random(7);
    Points points;
    for (double x = 10; x < 190; x += distance)
        points.emplace_back(x, 50 + height * (double(random() % 1000) / 500 - 1));
    return points;
}

class LineCoverageTest : public testing::TestWithParam<LineCase>
{
};

} // namespace

TEST_P(LineCoverageTest, CoversWhatStrokingCovers)
{
    const QPainterPath path = curveThrough(GetParam().points);
    const QImage covered = pictureOf(lineCoverage(flattened(path), penWidth, area));
    const auto difference = differenceOf(covered, stroked(path));
    EXPECT_LT(difference.mean, 2.5);
    EXPECT_LT(difference.strongOnes, 15);
}

INSTANTIATE_TEST_SUITE_P(
    Table, LineCoverageTest,
    testing::Values(LineCase{"Level", {{10, 50}, {100, 50}, {190, 50}}},
                    LineCase{"BetweenRows", {{10, 50.3}, {190, 50.3}}},
                    LineCase{"Slanting", {{10, 90}, {190, 10}}},
                    LineCase{"Upright", {{100, 10}, {100, 90}, {190, 90}}},
                    LineCase{"Calm", noise(3, 3)}, LineCase{"Wavy", noise(5, 30)},
                    LineCase{"Noisy", noise(1, 40)}, LineCase{"DenserThanItsWidth", noise(0.5, 10)},
                    LineCase{"Spike", {{10, 80}, {99, 80}, {100, 10}, {101, 80}, {190, 80}}},
                    LineCase{"LeapAtTheEndBehindAGap", {{10, 90}, {150, 90}, {151, 10}}},
                    LineCase{"LeapBehindAGap", {{10, 90}, {120, 90}, {121, 10}, {190, 10}}}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(LineCoverageShapeTest, LevelLineIsARectangleOfItsWidth)
{
    const auto coverage = lineCoverage(Points{{10, 50}, {20, 50}}, 4, area);
    const QImage picture = pictureOf(coverage);
    for (int y = 40; y < 60; ++y) {
        for (int x = 5; x < 25; ++x) {
            const bool inside = x >= 10 && x < 20 && y >= 48 && y < 52;
            EXPECT_EQ(qAlpha(picture.pixel(x, y)), inside ? 255 : 0) << x << " " << y;
        }
    }
}

TEST(LineCoverageShapeTest, NothingIsCoveredTwice)
{
    const auto coverage = lineCoverage(noise(0.25, 40), penWidth, area);
    const QImage picture =
        coverage.tinted(std::vector<QRgb>(static_cast<std::size_t>(area.height()), 0x80808080));
    for (int y = 0; y < area.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = 0; x < area.width(); ++x)
            ASSERT_LE(qAlpha(pixels[x]), 0x80) << x << " " << y;
    }
}

TEST(LineCoverageShapeTest, WhatABendEnclosesStaysFree)
{
    // An S: to the right below, back in the middle, to the right above.
    const Points line = {{20, 80}, {120, 80}, {120, 50}, {60, 50}, {60, 20}, {180, 20}};
    const auto coverage = lineCoverage(line, 4, area);
    EXPECT_EQ(alphaAt(coverage, 90, 80), 255);
    EXPECT_EQ(alphaAt(coverage, 90, 65), 0);
    EXPECT_EQ(alphaAt(coverage, 90, 50), 255);
    EXPECT_EQ(alphaAt(coverage, 90, 35), 0);
    EXPECT_EQ(alphaAt(coverage, 90, 20), 255);
}

TEST(LineCoverageShapeTest, UnderALineIsAllDownToTheBaseline)
{
    const auto coverage = coverageUnder(Points{{10, 30}, {110, 50}, {160, 50}}, 90, area);
    EXPECT_EQ(alphaAt(coverage, 60, 38), 0);
    EXPECT_EQ(alphaAt(coverage, 60, 42), 255);
    EXPECT_EQ(alphaAt(coverage, 60, 89), 255);
    EXPECT_EQ(alphaAt(coverage, 60, 90), 0);
    EXPECT_EQ(alphaAt(coverage, 150, 50), 255);
    EXPECT_EQ(alphaAt(coverage, 9, 80), 0);
    EXPECT_EQ(alphaAt(coverage, 160, 80), 0);
}

TEST(LineCoverageShapeTest, NothingIsUnderWhatBulgesBeyondTheEnds)
{
    const Points line = {{20, 20}, {10, 50}, {20, 80}, {100, 80}, {110, 50}, {100, 20}};
    const auto coverage = coverageUnder(line, 90, area);
    EXPECT_EQ(alphaAt(coverage, 15, 85), 0);
    EXPECT_EQ(alphaAt(coverage, 50, 85), 255);
    EXPECT_EQ(alphaAt(coverage, 105, 85), 0);
}

TEST(LineCoverageShapeTest, UnderALineThatTurnsBackIsAllBelowItsTop)
{
    const Points line = {{20, 80}, {120, 80}, {120, 50}, {60, 50}, {60, 20}, {180, 20}};
    const auto coverage = coverageUnder(line, 90, area);
    for (const int y : {25, 55, 85})
        EXPECT_EQ(alphaAt(coverage, 90, y), 255) << y;
}

} // namespace ostrel::test
