#include "Printers.h"
#include "ThemeView.h"

#include <QTest>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

/// A point inside the capsule, beside its text.
constexpr QPointF inside = {14, 22};

QByteArray pill(const char *isSecondary)
{
    return QByteArray(
               "PillButtonStyle { objectName: 'subject'; text: 'Add Monitor'; isSecondary: ") +
           isSecondary + " }";
}

void press(ThemeView &view)
{
    QTest::mousePress(&view.window(), Qt::LeftButton, {}, ThemeView::middleOf(*view.item()));
}

void release(ThemeView &view)
{
    QTest::mouseRelease(&view.window(), Qt::LeftButton, {}, ThemeView::middleOf(*view.item()));
}

} // namespace

TEST(PillButtonStyleTest, APressedPrimaryPillChangesToAccentPressedAndBackOnRelease)
{
    ThemeView view(pill("false"));
    ASSERT_EQ(view.error(), QString());
    EXPECT_TRUE(looksLike(view.colorAt(inside), view.themeColor("accent")));

    press(view);
    EXPECT_TRUE(looksLike(view.colorAt(inside), view.themeColor("accentPressed")));

    release(view);
    EXPECT_TRUE(looksLike(view.colorAt(inside), view.themeColor("accent")));
}

TEST(PillButtonStyleTest, APressedSecondaryPillOnlyDarkensItsFaintFill)
{
    ThemeView view(pill("true"));
    ASSERT_EQ(view.error(), QString());
    const QColor ground = view.themeColor("background");
    const QColor ink = view.themeColor("ink");
    EXPECT_TRUE(looksLike(view.colorAt(inside), laidOver(ground, ink, 0.03)));

    press(view);
    EXPECT_TRUE(looksLike(view.colorAt(inside), laidOver(ground, ink, 0.06)));

    release(view);
    EXPECT_TRUE(looksLike(view.colorAt(inside), laidOver(ground, ink, 0.03)));
}

TEST(PillButtonStyleTest, IsACapsuleAroundItsPaddedLabel)
{
    ThemeView view(pill("false"));

    const auto *label = view.property("contentItem").value<QQuickItem *>();

    EXPECT_EQ(label->x(), 24);
    EXPECT_EQ(label->y(), 12);
    EXPECT_EQ(view.item()->width(), label->implicitWidth() + 48);
    EXPECT_EQ(view.item()->height(), 44);
    EXPECT_EQ(view.property("radius"), QVariant(22.0));
    EXPECT_TRUE(looksLike(view.colorAt({1, 1}), view.themeColor("background")));
}

} // namespace ostrel::test
