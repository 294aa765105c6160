#include "Printers.h"
#include "ThemeView.h"

#include <QTransform>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace ostrel::test {

// At scales like 1.25 and 1.5, most lengths are no whole number of the screen's pixels.

namespace {

/// How many pixels of column @p x, from @p top to @p bottom, differ from the background.
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

/// The number of drawn pixels in each line of @p picture that has any.
std::vector<int> linesOf(const QImage &picture)
{
    const QImage turned = picture.transformed(QTransform().rotate(90));
    std::vector<int> lines;
    for (int y = 60; y < 150; ++y) {
        if (const int count = drawnPixels(turned, turned.width() - 1 - y, 60, 200))
            lines.push_back(count);
    }
    return lines;
}

} // namespace

TEST(FractionalPixelsTest, AHairlineIsOnePixelAtAnyPosition)
{
    for (int y = 20; y < 24; ++y) {
        ThemeView view("Hairline { objectName: 'subject'; x: 20; y: " + QByteArray::number(y) +
                       "; width: 100; color: Theme.ink }");
        ASSERT_EQ(view.error(), QString());
        EXPECT_EQ(drawnPixels(view.picture(), 100, 60, 100), 1) << y;
    }
}

TEST(FractionalPixelsTest, LettersAreAsSharpAtAnyHeight)
{
    std::vector<int> first;
    for (int y = 20; y < 24; ++y) {
        ThemeView view("ThemeText { objectName: 'subject'; x: 20; y: " + QByteArray::number(y) +
                       "; text: 'HEFL'; font: Theme.headline; color: Theme.ink }");
        ASSERT_EQ(view.error(), QString());
        const std::vector<int> lines = linesOf(view.picture());
        ASSERT_FALSE(lines.empty());
        if (first.empty())
            first = lines;
        EXPECT_EQ(lines, first) << y;
    }
}

TEST(FractionalPixelsTest, ADiscIsAsHighAsItIsWide)
{
    for (int place = 20; place < 24; ++place) {
        for (int size = 20; size < 24; ++size) {
            const QByteArray side = QByteArray::number(size);
            ThemeView view("Disc { objectName: 'subject'; x: 20; y: " + QByteArray::number(place) +
                           "; width: " + side + "; height: " + side + "; diameter: " + side +
                           "; color: Theme.ink }");
            ASSERT_EQ(view.error(), QString());
            const QImage picture = view.picture();
            const QImage turned = picture.transformed(QTransform().rotate(90));
            int widest = 0;
            int highest = 0;
            for (int line = 60; line < 150; ++line) {
                highest = std::max(highest, drawnPixels(picture, line, 60, 150));
                widest = std::max(widest, drawnPixels(turned, turned.width() - 1 - line, 60, 150));
            }
            EXPECT_EQ(highest, widest) << size << " at " << place;
            EXPECT_NEAR(highest, view.window().effectiveDevicePixelRatio() * size, 1)
                << size << " at " << place;
        }
    }
}

} // namespace ostrel::test
