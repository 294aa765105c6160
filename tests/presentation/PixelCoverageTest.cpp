#include "PixelCoverage.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

constexpr QRgb ink = 0xff4080c0;

std::vector<QRgb> rowsOf(QRgb color, int count)
{
    return std::vector<QRgb>(static_cast<std::size_t>(count), color);
}

void coverColumns(PixelCoverage &coverage, double left, double right, double top, double bottom)
{
    for (int i = coverage.uprightAt(left); i < coverage.uprightAt(right); ++i)
        coverage.cover(i, top, bottom);
}

} // namespace

TEST(PixelCoverageTest, WholePixelsAreOfTheFullColour)
{
    PixelCoverage coverage({10, 20, 4, 4});
    coverColumns(coverage, 11, 13, 21, 23);
    const QImage picture = coverage.tinted(rowsOf(ink, 4));
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x) {
            const bool inside = x >= 1 && x < 3 && y >= 1 && y < 3;
            EXPECT_EQ(*(reinterpret_cast<const QRgb *>(picture.constScanLine(y)) + x),
                      inside ? ink : 0U)
                << x << " " << y;
        }
    }
}

TEST(PixelCoverageTest, PartsOfPixelsArePaler)
{
    PixelCoverage coverage({0, 0, 3, 3});
    coverColumns(coverage, 0.5, 2, 0.75, 1.5);
    const QImage picture = coverage.tinted(rowsOf(0xff000000, 3));
    EXPECT_NEAR(qAlpha(picture.pixel(1, 0)), 255 / 4, 1);
    EXPECT_NEAR(qAlpha(picture.pixel(1, 1)), 255 / 2, 1);
    EXPECT_NEAR(qAlpha(picture.pixel(0, 1)), 255 / 4, 1);
    EXPECT_EQ(qAlpha(picture.pixel(1, 2)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(2, 1)), 0);
}

TEST(PixelCoverageTest, ShapesBesideEachOtherAddUp)
{
    PixelCoverage coverage({0, 0, 1, 3});
    coverColumns(coverage, 0, 1, 0.1, 1.3);
    coverColumns(coverage, 0, 1, 1.3, 1.9);
    const QImage picture = coverage.tinted(rowsOf(0xff000000, 3));
    EXPECT_NEAR(qAlpha(picture.pixel(0, 0)), 255 * 0.9, 3);
    EXPECT_NEAR(qAlpha(picture.pixel(0, 1)), 255 * 0.9, 3);
    EXPECT_EQ(qAlpha(picture.pixel(0, 2)), 0);
}

TEST(PixelCoverageTest, WhatLeavesTheAreaIsCutOff)
{
    PixelCoverage coverage({5, 5, 2, 2});
    coverColumns(coverage, -100, 100, -100, 6);
    coverColumns(coverage, -100, 100, 8, 1e9);
    const QImage picture = coverage.tinted(rowsOf(ink, 2));
    EXPECT_EQ(picture.pixel(0, 0), picture.pixel(1, 0));
    EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 255);
    EXPECT_EQ(qAlpha(picture.pixel(0, 1)), 0);
}

TEST(PixelCoverageTest, EachRowHasItsColour)
{
    PixelCoverage coverage({0, 0, 1, 2});
    coverColumns(coverage, 0, 1, 0, 2);
    const std::vector<QRgb> colors = {0xffff0000, 0xff0000ff};
    const QImage picture = coverage.tinted(colors);
    EXPECT_EQ(picture.pixel(0, 0), colors[0]);
    EXPECT_EQ(picture.pixel(0, 1), colors[1]);
}

} // namespace ostrel::test
