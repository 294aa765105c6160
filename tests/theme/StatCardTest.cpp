#include "Printers.h"
#include "ThemeView.h"

#include <QAccessible>
#include <QFont>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QByteArray card(const QByteArray &unit)
{
    return "StatCard { objectName: 'subject'; title: 'Avg Response'; value: '187'; unit: '" + unit +
           "'; color: Theme.statusUp }";
}

QString spokenName(QQuickItem *item)
{
    return QAccessible::queryAccessibleInterface(item)->text(QAccessible::Name);
}

} // namespace

TEST(StatCardTest, WithoutAUnitOnlyTheValueIsShown)
{
    ThemeView view(card(""));
    ASSERT_EQ(view.error(), QString());

    EXPECT_FALSE(view.item(u"unit"_s)->isVisible());
    EXPECT_TRUE(view.item(u"value"_s)->isVisible());
    EXPECT_EQ(spokenName(view.item()), u"Avg Response, 187"_s);
}

TEST(StatCardTest, TheUnitIsRightOfTheValueInTheSmallerFont)
{
    ThemeView view(card("ms"));
    ASSERT_EQ(view.error(), QString());
    const QQuickItem *value = view.item(u"value"_s);
    const QQuickItem *unit = view.item(u"unit"_s);

    EXPECT_TRUE(unit->isVisible());
    EXPECT_EQ(unit->x(), value->x() + value->width() + 3);
    EXPECT_EQ(unit->y() + unit->baselineOffset(), value->y() + value->baselineOffset());
    EXPECT_EQ(unit->property("font"), view.evaluate(u"ThemeFonts.face(500, 14)"_s));
    EXPECT_EQ(value->property("font"), view.evaluate(u"ThemeFonts.face(700, 32, 0)"_s));
    EXPECT_EQ(spokenName(view.item()), u"Avg Response, 187 ms"_s);
}

TEST(StatCardTest, HasTheSameHeightWithAndWithoutAUnit)
{
    ThemeView with(card("ms"));
    ThemeView without(card(""));

    EXPECT_EQ(with.property("implicitHeight"), QVariant(66.0));
    EXPECT_EQ(without.property("implicitHeight"), QVariant(66.0));
}

TEST(StatCardTest, ASmallerValueKeepsTheHeight)
{
    ThemeView view(card("ms"));

    view.setProperty("valueSize", 24);

    EXPECT_EQ(view.item(u"value"_s)->property("font").value<QFont>().pixelSize(), 24);
    EXPECT_EQ(view.property("implicitHeight"), QVariant(66.0));
}

} // namespace ostrel::test
