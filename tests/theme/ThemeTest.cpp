#include "Printers.h"
#include "ThemeView.h"

#include <QFont>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

struct PaletteCase
{
    const char *name;
    float red, green, blue, alpha;
};

struct FaceCase
{
    const char *name;
    const char *family;
    int weight;
    int pixelSize;
    double letterSpacing;
};

struct LengthCase
{
    const char *name;
    double value;
};

class ThemePaletteTest : public testing::TestWithParam<PaletteCase>
{
};
class ThemeFaceTest : public testing::TestWithParam<FaceCase>
{
};
class ThemeLengthTest : public testing::TestWithParam<LengthCase>
{
};

class ThemeContrastTest : public testing::TestWithParam<const char *>
{
};

/// As WCAG 2.2 defines "relative luminance".
double luminanceOf(const QColor &color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// As WCAG 2.2 defines "contrast ratio".
double contrastOf(const QColor &left, const QColor &right)
{
    const auto [darker, lighter] = std::minmax({luminanceOf(left), luminanceOf(right)});
    return (lighter + 0.05) / (darker + 0.05);
}

template<typename Case>
std::string nameOf(const testing::TestParamInfo<Case> &info)
{
    return info.param.name;
}

} // namespace

TEST_P(ThemePaletteTest, IsExactlyTheNamedColor)
{
    const PaletteCase &expected = GetParam();
    ThemeView view("");
    ASSERT_EQ(view.error(), QString());

    const QColor color = view.themeColor(expected.name);

    ASSERT_TRUE(color.isValid());
    constexpr float tolerance = 1.0F / 512;
    EXPECT_NEAR(color.redF(), expected.red, tolerance);
    EXPECT_NEAR(color.greenF(), expected.green, tolerance);
    EXPECT_NEAR(color.blueF(), expected.blue, tolerance);
    EXPECT_NEAR(color.alphaF(), expected.alpha, tolerance);
}

INSTANTIATE_TEST_SUITE_P(Palette, ThemePaletteTest,
                         testing::Values(PaletteCase{"background", 1.0F, 0.94F, 0.90F, 1},
                                         PaletteCase{"surface", 1.0F, 0.97F, 0.95F, 1},
                                         PaletteCase{"accent", 0.16F, 0.20F, 0.52F, 1},
                                         PaletteCase{"accentPressed", 0.12F, 0.16F, 0.44F, 1},
                                         PaletteCase{"ink", 0.12F, 0.12F, 0.22F, 1},
                                         PaletteCase{"textPrimary", 0.12F, 0.12F, 0.22F, 1},
                                         PaletteCase{"textSecondary", 0.12F, 0.12F, 0.22F, 0.50F},
                                         PaletteCase{"textTertiary", 0.12F, 0.12F, 0.22F, 0.25F},
                                         PaletteCase{"hairline", 0.16F, 0.20F, 0.52F, 0.06F},
                                         PaletteCase{"statusUp", 0.22F, 0.75F, 0.50F, 1},
                                         PaletteCase{"statusDown", 0.92F, 0.34F, 0.30F, 1},
                                         PaletteCase{"warning", 0.96F, 0.56F, 0.30F, 1},
                                         PaletteCase{"statusMuted", 0.12F, 0.12F, 0.22F, 0.25F}),
                         nameOf<PaletteCase>);

TEST_P(ThemeContrastTest, IsEasyToSeeOnEveryGroundIfTheDesktopAsksForHighContrast)
{
    ThemeView view("");
    ASSERT_EQ(view.error(), QString());
    const QColor usual = view.themeColor(GetParam());
    (void)view.evaluate(u"Theme.highContrast = true"_s);
    const QColor color = view.themeColor(GetParam());
    (void)view.evaluate(u"Theme.highContrast = false"_s);
    EXPECT_EQ(view.themeColor(GetParam()), usual);

    const QColor background = view.themeColor("background");
    const QColor pressed = laidOver(background, view.themeColor("accent"), 0.14);
    for (const QColor &ground : {background, view.themeColor("surface"), pressed})
        EXPECT_GE(contrastOf(laidOver(ground, color, 1), ground), 4.5);
}

INSTANTIATE_TEST_SUITE_P(Faint, ThemeContrastTest,
                         testing::Values("textSecondary", "textTertiary", "hairline", "statusMuted",
                                         "statusUp", "statusDown", "warning", "focusEdge"));

TEST(ThemeTest, ADisabledConfirmButtonIsReadableIfTheDesktopAsksForHighContrast)
{
    ThemeView view("ConfirmButton { objectName: 'subject'; text: 'Save'; enabled: false }");
    ASSERT_EQ(view.error(), QString());
    (void)view.evaluate(u"Theme.highContrast = true"_s);
    const auto colorOf = [&](const char *part) {
        return view.property(part).value<QQuickItem *>()->property("color").value<QColor>();
    };
    const QColor ground = laidOver(view.themeColor("background"), colorOf("background"), 1);
    EXPECT_GE(contrastOf(laidOver(ground, colorOf("contentItem"), 1), ground), 4.5);
}

TEST_P(ThemeFaceTest, IsExactlyTheNamedFont)
{
    const FaceCase &expected = GetParam();
    ThemeView view("");
    ASSERT_EQ(view.error(), QString());

    const auto face = view.evaluate(u"Theme.%1"_s.arg(QLatin1String(expected.name))).value<QFont>();

    EXPECT_EQ(face.family(), QLatin1String(expected.family));
    EXPECT_EQ(face.weight(), expected.weight);
    EXPECT_EQ(face.pixelSize(), expected.pixelSize);
    constexpr double finest = 1.0 / 64;
    EXPECT_NEAR(face.letterSpacing(), expected.letterSpacing, finest);
}

INSTANTIATE_TEST_SUITE_P(Faces, ThemeFaceTest,
                         testing::Values(FaceCase{"headline", "Avenir Next", 600, 14, 0.1},
                                         FaceCase{"body", "Avenir Next", 400, 13, 0.1},
                                         FaceCase{"caption", "Avenir Next", 500, 12, 0.1},
                                         FaceCase{"footnote", "Avenir Next", 400, 11, 0.1},
                                         FaceCase{"label", "Avenir Next", 500, 10, 0.1},
                                         FaceCase{"mono", "SF Mono", 500, 12, 0.1},
                                         FaceCase{"demiBold15", "Avenir Next", 600, 15, 0.1},
                                         FaceCase{"sectionLabel", "Avenir Next", 600, 10, 1.2}),
                         nameOf<FaceCase>);

TEST_P(ThemeLengthTest, IsExactlyTheNamedLength)
{
    const LengthCase &expected = GetParam();
    ThemeView view("");
    ASSERT_EQ(view.error(), QString());

    EXPECT_EQ(view.evaluate(u"Theme.%1"_s.arg(QLatin1String(expected.name))),
              QVariant(expected.value));
}

INSTANTIATE_TEST_SUITE_P(Lengths, ThemeLengthTest,
                         testing::Values(LengthCase{"cornerRadius", 12},
                                         LengthCase{"cornerRadiusSmall", 8},
                                         LengthCase{"cardPadding", 16},
                                         LengthCase{"sectionSpacing", 24},
                                         LengthCase{"spacing", 12}),
                         nameOf<LengthCase>);

TEST(ThemeTest, StatusesHaveTheirColors)
{
    ThemeView view("");
    const auto colorOf = [&](const char *status) {
        return view.evaluate(u"Theme.statusColor(MonitorStatus.%1)"_s.arg(QLatin1String(status)))
            .value<QColor>();
    };

    EXPECT_EQ(colorOf("Up"), view.themeColor("statusUp"));
    EXPECT_EQ(colorOf("Down"), view.themeColor("statusDown"));
    EXPECT_EQ(colorOf("Paused"), view.themeColor("statusMuted"));
    EXPECT_EQ(colorOf("Pending"), view.themeColor("statusMuted"));
}

TEST(ThemeTest, AnAlphaOfATranslucentColorMultiplies)
{
    ThemeView view("");

    const auto faded = view.evaluate(u"Theme.faded(Theme.statusMuted, 0.1)"_s).value<QColor>();

    EXPECT_NEAR(faded.alphaF(), 0.025, 0.001);
}

TEST(ThemeTest, TextsHaveTheHeightOfTheirLineBoxes)
{
    ThemeView view("ThemeText { objectName: 'subject'; text: 'Xg'; font: Theme.body }");
    ASSERT_EQ(view.error(), QString());

    EXPECT_EQ(view.property("implicitHeight"), QVariant(18.0));
    view.setProperty("font", view.evaluate(u"ThemeFonts.face(700, 32, 0)"_s));
    EXPECT_EQ(view.property("implicitHeight"), QVariant(30.0));
    view.setProperty("font", view.evaluate(u"Theme.regular9"_s));
    EXPECT_EQ(view.property("implicitHeight"), QVariant(12.0));
}

} // namespace ostrel::test
