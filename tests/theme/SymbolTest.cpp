#include "Printers.h"
#include "SymbolIcon.h"
#include "SymbolRaster.h"
#include "ThemeView.h"

#include <QPainter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class SymbolNameTest : public testing::TestWithParam<const char *>
{
};

int inkedPixels(const QImage &image)
{
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            inked += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    }
    return inked;
}

int strongestAlpha(const QImage &image)
{
    int strongest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            strongest = std::max(strongest, qAlpha(image.pixel(x, y)));
    }
    return strongest;
}

} // namespace

TEST_P(SymbolNameTest, ExistsAndShowsSomethingAtEverySize)
{
    for (const int pixels : {14, 18, 20, 28, 58}) {
        const QImage image =
            SymbolRaster::image(QLatin1String(GetParam()), pixels, QColor(Qt::black));
        ASSERT_EQ(image.size(), QSize(pixels, pixels));
        EXPECT_GT(inkedPixels(image), pixels) << pixels;
        EXPECT_LT(inkedPixels(image), pixels * pixels) << pixels;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Symbols, SymbolNameTest,
    testing::Values("arrow.trianglehead.clockwise", "bird.fill", "checkmark",
                    "checkmark.circle.fill", "chevron.down", "chevron.right",
                    "chevron.up.chevron.down", "circle.dotted", "circle.dotted.circle",
                    "doc.on.clipboard", "exclamationmark.magnifyingglass",
                    "exclamationmark.triangle.fill", "gearshape", "globe", "lock.shield.fill",
                    "moon.circle.fill", "network", "pause", "play", "plus", "questionmark.circle",
                    "slider.horizontal", "speedometer", "text.magnifyingglass", "trash",
                    "waveform.path", "xmark", "xmark.circle.fill", "app-icon"));

TEST(SymbolTest, AnUnknownNameShowsNothing)
{
    EXPECT_TRUE(SymbolRaster::image(u"no.such"_s, 20, Qt::black).isNull());
    ThemeView view("Symbol { objectName: 'subject'; name: 'no.such' }");
    EXPECT_EQ(view.error(), QString());
    EXPECT_TRUE(looksLike(view.colorAt({7, 7}), view.themeColor("background")));
}

TEST(SymbolTest, TakesTheColorThatItIsGiven)
{
    const QImage red = SymbolRaster::image(u"pause"_s, 24, QColor(Qt::red));

    EXPECT_EQ(red.pixelColor(8, 12), QColor(Qt::red));
}

TEST(SymbolTest, ATranslucentColorIsEvenWhereItsPathsOverlap)
{
    constexpr int alpha = 64;
    const QImage image = SymbolRaster::image(u"network"_s, 48, QColor(31, 31, 56, alpha));

    EXPECT_EQ(strongestAlpha(image), alpha);
}

TEST(SymbolTest, IsDrawnOncePerSizeAndColor)
{
    const auto drawn = [](int pixels, const QColor &color) {
        return SymbolRaster::image(u"globe"_s, pixels, color).cacheKey();
    };

    EXPECT_EQ(drawn(20, Qt::black), drawn(20, Qt::black));
    EXPECT_NE(drawn(20, Qt::black), drawn(40, Qt::black));
    EXPECT_NE(drawn(20, Qt::black), drawn(20, Qt::red));
}

TEST(SymbolTest, BoxesFollowTheSizeOfTheTextBeside)
{
    struct
    {
        qreal systemSize, side;
    } const table[] = {{11, 14}, {12, 14}, {16, 20}, {22, 26}, {28, 34}, {48, 58}};
    for (const auto &[systemSize, side] : table)
        EXPECT_EQ(SymbolRaster::boxFor(systemSize), side) << systemSize;

    ThemeView view("Symbol { objectName: 'subject'; name: 'plus'; systemSize: 16 }");
    EXPECT_EQ(view.property("implicitWidth"), QVariant(20.0));
}

TEST(SymbolIconTest, ComesInTheSizesThatBarsAndMenusRequest)
{
    const QIcon icon = SymbolIcon::icon({.symbol = u"globe"_s, .color = Qt::black});
    for (const int side : {16, 22, 24, 32, 48})
        EXPECT_TRUE(icon.availableSizes().contains(QSize(side, side))) << side;
}

TEST(SymbolIconTest, IsPaintedInTheMiddleOfItsPlaceAtTheScreensScale)
{
    const QIcon icon = SymbolIcon::icon({.symbol = u"globe"_s, .color = Qt::black});
    QImage screen(80, 32, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(2);
    screen.fill(Qt::transparent);
    QPainter painter(&screen);
    icon.paint(&painter, 0, 0, 40, 16);
    painter.end();
    EXPECT_EQ(screen.copy(24, 0, 32, 32).convertToFormat(QImage::Format_ARGB32_Premultiplied),
              SymbolRaster::image(u"globe"_s, 32, Qt::black)
                  .convertToFormat(QImage::Format_ARGB32_Premultiplied));
    EXPECT_EQ(inkedPixels(screen), inkedPixels(screen.copy(24, 0, 32, 32)));
}

TEST(SymbolIconTest, ACopyLooksTheSameAndKeepsItsName)
{
    const QIcon icon = SymbolIcon::icon(
        {.symbol = u"globe"_s, .color = Qt::red, .themeName = u"ostrel-globe-symbolic"_s});
    QIcon copy = icon;
    copy.detach();
    EXPECT_EQ(copy.pixmap(24).toImage(), icon.pixmap(24).toImage());
    EXPECT_EQ(copy.name(), icon.name());
}

TEST(SymbolTest, FollowsItsColorWhileItIsShown)
{
    ThemeView view("Symbol { objectName: 'subject'; name: 'pause'; width: 24; height: 24; "
                   "color: Theme.statusUp }");
    ASSERT_EQ(view.error(), QString());
    EXPECT_TRUE(looksLike(view.colorAt({8, 12}), view.themeColor("statusUp")));

    view.setProperty("color", view.themeColor("statusDown"));

    EXPECT_TRUE(looksLike(view.colorAt({8, 12}), view.themeColor("statusDown")));
}

} // namespace ostrel::test
