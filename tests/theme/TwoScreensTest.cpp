#include "ThemeView.h"
#include "WaitFor.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

QScreen *screen(const QString &name)
{
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen->name() == name)
            return screen;
    }
    return nullptr;
}

bool becomesHinted(const ThemeView &view, bool isHinted)
{
    return waitFor([&] { return view.property("renderType").toInt() == (isHinted ? 1 : 0); });
}

class TwoScreensTest : public testing::TestWithParam<const char *>
{
};

} // namespace

TEST_P(TwoScreensTest, LettersAreHintedOnlyOnTheCoarseOne)
{
    ThemeView view(GetParam());
    ASSERT_EQ(view.error(), QString());
    ASSERT_TRUE(screen(u"fine"_s));
    EXPECT_EQ(screen(u"fine"_s)->devicePixelRatio(), 2);
    EXPECT_TRUE(becomesHinted(view, true));
    view.window().setScreen(screen(u"fine"_s));
    EXPECT_TRUE(becomesHinted(view, false));
    view.window().setScreen(screen(u"coarse"_s));
    EXPECT_TRUE(becomesHinted(view, true));
}

INSTANTIATE_TEST_SUITE_P(Texts, TwoScreensTest,
                         testing::Values("ThemeText { objectName: 'subject'; text: 'Shop' }",
                                         "Field { objectName: 'subject'; spokenName: 'Shop' }"));

} // namespace ostrel::test
