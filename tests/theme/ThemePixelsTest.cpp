#include "Printers.h"
#include "ThemeView.h"

#include <gtest/gtest.h>

namespace ostrel::test {

// Built twice: at scale 1 and at scale 2.

TEST(ThemePixelsTest, ACardIsSurfaceWithAHairlineInsideItsBounds)
{
    ThemeView view("CardStyle { objectName: 'subject'; Item { width: 100; height: 50 } }");
    ASSERT_EQ(view.error(), QString());
    const QColor ground = view.themeColor("background");
    const QColor surface = view.themeColor("surface");
    const QColor edge = laidOver(surface, view.themeColor("accent"), 0.06);

    EXPECT_EQ(view.item()->implicitWidth(), 132);
    EXPECT_EQ(view.item()->implicitHeight(), 82);
    EXPECT_TRUE(looksLike(view.colorAt({66, 41}), surface));
    EXPECT_TRUE(looksLike(view.colorAt({66, 1.5}), surface));
    for (const QPointF onEdge :
         {QPointF(66, 0.5), QPointF(66, 81.5), QPointF(0.5, 41), QPointF(131.5, 41)})
        EXPECT_TRUE(looksLike(view.colorAt(onEdge), edge)) << onEdge.x() << ", " << onEdge.y();
    for (const QPointF outside : {QPointF(66, -0.5), QPointF(66, 82.5), QPointF(1, 1)})
        EXPECT_TRUE(looksLike(view.colorAt(outside), ground)) << outside.x();
}

TEST(ThemePixelsTest, AStatCardsBarIsItsColorAtHalfOpacity)
{
    ThemeView view("StatCard { objectName: 'subject'; title: 'Uptime 7d'; value: '97.1'; "
                   "unit: '%'; color: Theme.warning }");
    ASSERT_EQ(view.error(), QString());
    const QColor ground = view.themeColor("background");
    const QColor bar = laidOver(ground, view.themeColor("warning"), 0.5);

    EXPECT_TRUE(looksLike(view.colorAt({14, 1.5}), bar));
    EXPECT_TRUE(looksLike(view.colorAt({26, 1.5}), bar));
    EXPECT_TRUE(looksLike(view.colorAt({29, 1.5}), ground));
    EXPECT_TRUE(looksLike(view.colorAt({14, 3.5}), ground));
}

TEST(ThemePixelsTest, QuietThingsAreInkAtThreePercentWithAnEdgeAtEight)
{
    ThemeView view("Tile { objectName: 'subject'; text: 'Port'; symbol: 'network' }");
    ASSERT_EQ(view.error(), QString());
    const QColor ink = view.themeColor("ink");
    const QColor fill = laidOver(view.themeColor("background"), ink, 0.03);

    EXPECT_TRUE(looksLike(view.colorAt({8, 16}), fill));
    EXPECT_TRUE(looksLike(view.colorAt({20, 0.5}), laidOver(fill, ink, 0.08)));
}

TEST(ThemePixelsTest, ASymbolsPixelsAreDrawnUnsmoothed)
{
    // The symbol's picture is used as it was drawn: its edges are not smoothed again.
    ThemeView view("Symbol { objectName: 'subject'; name: 'pause'; width: 24; height: 24; "
                   "color: Theme.ink }");
    ASSERT_EQ(view.error(), QString());

    EXPECT_TRUE(looksLike(view.colorAt({8, 12}), view.themeColor("ink")));
    EXPECT_TRUE(looksLike(view.colorAt({12, 12}), view.themeColor("background")));
    EXPECT_TRUE(looksLike(view.colorAt({16, 12}), view.themeColor("ink")));
    EXPECT_TRUE(looksLike(view.colorAt({2, 12}), view.themeColor("background")));
}

TEST(ThemePixelsTest, AToggleIsATrackWithAKnob)
{
    ThemeView view("Toggle { objectName: 'subject'; spokenName: 'x'; checked: true }");
    ASSERT_EQ(view.error(), QString());

    EXPECT_EQ(view.item()->size(), QSizeF(36, 20));
    EXPECT_TRUE(looksLike(view.colorAt({8, 10}), view.themeColor("accent")));
    EXPECT_TRUE(looksLike(view.colorAt({26, 10}), view.themeColor("surface")));
    EXPECT_TRUE(looksLike(view.colorAt({18, 18.5}), view.themeColor("accent")));
}

TEST(ThemePixelsTest, ABadgeIsSurfaceWithItsOwnEdge)
{
    ThemeView view("Badge { objectName: 'subject'; symbol: 'network'; text: 'Port 5432'; "
                   "color: Theme.accent }");
    ASSERT_EQ(view.error(), QString());
    const QColor surface = view.themeColor("surface");

    EXPECT_EQ(view.item()->height(), 26);
    EXPECT_TRUE(looksLike(view.colorAt({24.5, 5}), surface));
    EXPECT_TRUE(
        looksLike(view.colorAt({40, 0.5}), laidOver(surface, view.themeColor("accent"), 0.08)));
}

} // namespace ostrel::test
