#include "ThemeView.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

constexpr int side = 40;

/// Two items of @p type side by side, with these properties.
QByteArray pair(const std::string &type, const std::string &left, const std::string &right)
{
    const std::string place = "y: 0; implicitWidth: 40; implicitHeight: 40; ";
    return QByteArray::fromStdString("Item { objectName: 'subject'; width: 80; height: 40; " +
                                     type + " { x: 0; " + place + left + " } " + type +
                                     " { objectName: 'second'; x: 40; " + place + right + " } }");
}

QImage partOf(ThemeView &view, int x)
{
    const QPoint corner = view.item()->mapToScene(QPointF(x, 0)).toPoint();
    return view.picture().copy(QRect(corner, QSize(side, side)));
}

QImage leftOf(ThemeView &view)
{
    return partOf(view, 0);
}

QImage rightOf(ThemeView &view)
{
    return partOf(view, side);
}

struct OneDifference
{
    const char *name;
    const char *type;
    const char *same;
    const char *left;
    const char *right;
};

void PrintTo(const OneDifference &difference, std::ostream *stream)
{
    *stream << difference.name;
}

class SharedPictureTest : public testing::TestWithParam<OneDifference>
{
};

} // namespace

TEST_P(SharedPictureTest, IsOnlyForItemsThatLookTheSame)
{
    const auto &[name, type, same, left, right] = GetParam();
    const std::string leftLook = std::string(same) + left;
    ThemeView alike(pair(type, leftLook, leftLook));
    ASSERT_EQ(alike.error(), QString());
    EXPECT_EQ(leftOf(alike), rightOf(alike));

    ThemeView different(pair(type, leftLook, std::string(same) + right));
    ASSERT_EQ(different.error(), QString());
    EXPECT_EQ(leftOf(different), leftOf(alike));
    EXPECT_NE(leftOf(different), rightOf(different));
}

INSTANTIATE_TEST_SUITE_P(
    Looks, SharedPictureTest,
    testing::Values(
        OneDifference{"BoxColor", "EdgedBox", "", "color: 'red'", "color: 'blue'"},
        OneDifference{"BoxOpacity", "EdgedBox", "", "color: '#80ff0000'", "color: '#81ff0000'"},
        OneDifference{"BoxEdge", "EdgedBox", "color: 'red'; ", "edge: 'blue'", "edge: 'green'"},
        OneDifference{"BoxEdgeWidth", "EdgedBox", "edge: 'blue'; ", "edgeWidth: 1",
                      "edgeWidth: 1.5"},
        OneDifference{"BoxRadius", "EdgedBox", "color: 'red'; ", "radius: 6", "radius: 6.5"},
        OneDifference{"BoxWidth", "EdgedBox", "color: 'red'; radius: 8; ", "", "width: 39.5"},
        OneDifference{"BoxHeight", "EdgedBox", "color: 'red'; radius: 8; ", "", "height: 39.5"},
        OneDifference{"DiscColor", "Disc", "diameter: 20; ", "color: 'red'", "color: 'blue'"},
        OneDifference{"DiscDiameter", "Disc", "color: 'red'; ", "diameter: 20", "diameter: 20.5"},
        OneDifference{"DiscGroundColor", "Disc", "color: 'red'; diameter: 8; groundDiameter: 20; ",
                      "groundColor: 'blue'", "groundColor: 'green'"},
        OneDifference{"DiscGroundDiameter", "Disc",
                      "color: 'red'; diameter: 8; groundColor: 'blue'; ", "groundDiameter: 20",
                      "groundDiameter: 20.5"}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(PixelItemTest, ChangingAnItemDoesNotChangeTheOthersPicture)
{
    ThemeView view(pair("EdgedBox", "color: 'red'", "color: 'red'"));
    const QImage before = leftOf(view);
    ASSERT_EQ(rightOf(view), before);

    view.item(u"second"_s)->setProperty("color", QColor(Qt::blue));
    EXPECT_EQ(leftOf(view), before);
    EXPECT_NE(rightOf(view), before);

    view.item(u"second"_s)->setProperty("color", QColor(Qt::red));
    EXPECT_EQ(rightOf(view), before);
}

TEST(PixelItemTest, ManyLooksInARowAreAllShown)
{
    ThemeView view("EdgedBox { objectName: 'subject'; width: 40; height: 40 }");
    for (int i = 0; i < 300; ++i) {
        const QColor color = QColor::fromHsv(i, 255, 255);
        view.setProperty("color", color);
        ASSERT_TRUE(looksLike(view.colorAt({20, 20}), color)) << i;
    }
}

} // namespace ostrel::test
