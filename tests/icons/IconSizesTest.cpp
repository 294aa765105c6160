#include "IconSizes.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

QImage icon(int width, int height)
{
    return {width, height, QImage::Format_ARGB32_Premultiplied};
}

TEST(IconSizesTest, AnIconThatFitsIsUnchanged)
{
    EXPECT_EQ(shownIcon(icon(256, 256)).size(), QSize(256, 256));
    EXPECT_EQ(shownIcon(icon(16, 8)).size(), QSize(16, 8));
    EXPECT_EQ(keptIcon(icon(1024, 1024)).size(), QSize(1024, 1024));
    EXPECT_TRUE(shownIcon({}).isNull());
    EXPECT_TRUE(keptIcon({}).isNull());
}

TEST(IconSizesTest, AnIconThatDoesNotFitKeepsItsProportions)
{
    EXPECT_EQ(shownIcon(icon(257, 257)).size(), QSize(256, 256));
    EXPECT_EQ(shownIcon(icon(512, 128)).size(), QSize(256, 64));
    EXPECT_EQ(keptIcon(icon(1025, 1025)).size(), QSize(1024, 1024));
    EXPECT_EQ(keptIcon(icon(512, 2048)).size(), QSize(256, 1024));
}

TEST(IconSizesTest, AStripeStaysAPixelWide)
{
    EXPECT_EQ(shownIcon(icon(2048, 1)).size(), QSize(256, 1));
    EXPECT_EQ(keptIcon(icon(1, 2048)).size(), QSize(1, 1024));
}

} // namespace
} // namespace ostrel
