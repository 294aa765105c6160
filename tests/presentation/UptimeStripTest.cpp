#include "UptimeStrip.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

constexpr QSizeF row(600, 26);

QImage paint(const std::vector<bool> &bars, double scale)
{
    QImage image((row * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(scale, scale);
    paintUptimeStrip(painter, bars, row, {Qt::green, Qt::red, Qt::blue});
    return image;
}

} // namespace

TEST(UptimeStripTest, BarsShareTheRow)
{
    const auto bars = stripBars(90, row);
    ASSERT_EQ(bars.size(), 90U);
    EXPECT_DOUBLE_EQ(bars[0].width(), (600 - 1.5 * 89) / 90);
    EXPECT_DOUBLE_EQ(bars[1].left() - bars[0].right(), 1.5);
    EXPECT_NEAR(bars.back().right(), 600, 1e-9);
}

TEST(UptimeStripTest, OneBarIsAsWideAsTheRow)
{
    EXPECT_EQ(stripBars(1, row), std::vector{QRectF({}, row)});
}

TEST(UptimeStripTest, NoRoomGivesBarsWithoutWidth)
{
    const auto bars = stripBars(90, {10, 26});
    EXPECT_EQ(bars.size(), 90U);
    for (const QRectF &bar : bars)
        EXPECT_EQ(bar.width(), 0);
}

TEST(UptimeStripTest, BarsHaveTheirColoursAtEveryScale)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const QImage image = paint({true, false, true}, scale);
        const int y = image.height() / 2;
        EXPECT_EQ(image.pixelColor(image.width() / 6, y), QColor(Qt::green)) << scale;
        EXPECT_EQ(image.pixelColor(image.width() / 2, y), QColor(Qt::red)) << scale;
        EXPECT_EQ(image.pixelColor(image.width() - 1, y), QColor(Qt::green)) << scale;
    }
}

TEST(UptimeStripTest, OuterCornersAreCutOffMoreThanInnerOnes)
{
    const QImage image = paint(std::vector<bool>(90, true), 2);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(1, 1).alpha(), 0);
    EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1).alpha(), 0);
    // A bar in the middle has its own, smaller corners.
    const int left = static_cast<int>(stripBars(90, row)[45].left() * 2) + 2;
    EXPECT_GT(image.pixelColor(left, 2).alpha(), 200);
}

TEST(UptimeStripTest, EmptyStripIsOneQuietBar)
{
    const QImage image = paint({}, 1);
    EXPECT_EQ(image.pixelColor(300, 13), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
}

} // namespace ostrel::test
