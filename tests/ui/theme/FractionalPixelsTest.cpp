#include "Printers.h"
#include "ThemeView.h"

#include <QTransform>

#include <gtest/gtest.h>

#include <algorithm>

namespace ostrel::test {

// At scale 1.25: most lengths are no whole number of the screen's pixels.

namespace {

/// How many pixels of column @p x, from @p top to @p bottom, aren't the ground's.
int drawnPixels(const QImage &picture, int x, int top, int bottom)
{
    const QColor ground = picture.pixelColor(0, 0);
    int count = 0;
    for (int y = top; y < bottom; ++y) {
        if (!looksLike(picture.pixelColor(x, y), ground))
            ++count;
    }
    return count;
}

} // namespace

TEST(FractionalPixelsTest, AHairlineIsOnePixelWhereverItStands)
{
    for (int y = 20; y < 24; ++y) {
        ThemeView view("Hairline { objectName: 'subject'; x: 20; y: " + QByteArray::number(y) +
                       "; width: 100; color: Theme.ink }");
        ASSERT_EQ(view.error(), QString());
        EXPECT_EQ(drawnPixels(view.picture(), 100, 60, 100), 1) << y;
    }
}

TEST(FractionalPixelsTest, ADiscIsAsHighAsItIsWide)
{
    for (int place = 20; place < 24; ++place) {
        const QByteArray at = QByteArray::number(place);
        ThemeView view("Disc { objectName: 'subject'; x: " + at + "; y: " + at +
                       "; width: 21; height: 21; diameter: 8; color: Theme.ink }");
        ASSERT_EQ(view.error(), QString());
        const QImage picture = view.picture();
        const QImage turned = picture.transformed(QTransform().rotate(90));
        int widest = 0;
        int highest = 0;
        for (int column = 60; column < 120; ++column) {
            highest = std::max(highest, drawnPixels(picture, column, 60, 120));
            widest = std::max(widest, drawnPixels(turned, turned.width() - 1 - column, 60, 120));
        }
        EXPECT_EQ(highest, widest) << place;
        EXPECT_NEAR(highest, 11, 1) << place;
    }
}

} // namespace ostrel::test
