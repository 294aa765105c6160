#include "ThemeFonts.h"

#include "Printers.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrel::test {

TEST(ThemeFontsTest, LinesHaveTheHeightOfTheirSize)
{
    struct
    {
        qreal pixelSize, height;
    } const table[] = {
        {9, 12},  {10, 13}, {11, 14}, {12, 16}, {13, 18},
        {14, 18}, {15, 20}, {22, 28}, {24, 30}, {32, 30},
    };
    for (const auto &[pixelSize, height] : table)
        EXPECT_EQ(ThemeFonts::lineBox(pixelSize), height) << pixelSize;
}

TEST(ThemeFontsTest, CapitalsAreInTheMiddleOfTheirLineBox)
{
    for (const int pixelSize : {9, 10, 11, 12, 13, 14, 15, 22, 24, 32}) {
        const QFont font = ThemeFonts::face(500, pixelSize);
        const QFontMetricsF metrics(font);
        const qreal baseline = ThemeFonts::halfLeading(font) + metrics.ascent();
        EXPECT_NEAR(2 * baseline, std::round(2 * baseline), 1e-9) << pixelSize;
        EXPECT_NEAR(baseline - metrics.capHeight() / 2, ThemeFonts::lineBox(pixelSize) / 2,
                    0.06 * pixelSize + 0.5)
            << pixelSize;
    }
}

TEST(ThemeFontsTest, ASizeWithoutALineBoxOfItsOwnStillFitsItsText)
{
    for (const int pixelSize : {16, 18, 26, 28, 40})
        EXPECT_GE(ThemeFonts::lineBox(pixelSize), pixelSize) << pixelSize;
}

TEST(ThemeFontsTest, FontsFallBackToLatoAndJetBrainsMono)
{
    if (QFontDatabase::hasFamily(u"Avenir Next"_s))
        GTEST_SKIP() << "the family itself is here";
    for (const int weight : {400, 500, 600, 700})
        EXPECT_TRUE(QFontInfo(ThemeFonts::face(weight, 13)).family().startsWith(u"Lato"_s))
            << weight;
    EXPECT_TRUE(QFontInfo(ThemeFonts::mono(500, 12)).family().startsWith(u"JetBrains Mono"_s));
}

TEST(ThemeFontsTest, TheFourWeightsAreFourDifferentFonts)
{
    qreal narrower = 0;
    for (const int weight : {400, 500, 600, 700}) {
        const qreal width =
            ThemeFonts::textWidth(u"All Systems Operational"_s, ThemeFonts::face(weight, 32));
        EXPECT_GT(width, narrower) << weight;
        narrower = width;
    }
}

TEST(ThemeFontsTest, AllFiguresHaveTheSameWidth)
{
    const QFontMetricsF metrics(ThemeFonts::face(700, 32, 0));
    for (const char figure : {'0', '1', '4', '7', '9'})
        EXPECT_EQ(metrics.horizontalAdvance(QLatin1Char(figure)),
                  metrics.horizontalAdvance(QLatin1Char('8')))
            << figure;
}

} // namespace ostrel::test
