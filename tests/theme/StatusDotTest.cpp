#include "Printers.h"
#include "ThemeView.h"
#include "WaitFor.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

constexpr double size = 40;
constexpr double middle = 2.6 * size / 2;

QByteArray dot(const char *status)
{
    return QByteArray("StatusDot { objectName: 'subject'; size: 40; status: MonitorStatus.") +
           status + " }";
}

QQuickItem &haloOf(const ThemeView &view)
{
    return *view.item(u"halo"_s);
}

/// False also for a dot that has never been down: it has no halo item.
bool showsHalo(const ThemeView &view)
{
    const QQuickItem *halo = view.item(u"halo"_s);
    return halo && halo->isVisible();
}

bool isPulsing(const ThemeView &view)
{
    const QQuickItem *halo = view.item(u"halo"_s);
    return halo && halo->property("isPulsing").toBool();
}

} // namespace

TEST(StatusDotTest, HasASquareFrameOfTwoPointSixTimesItsSize)
{
    ThemeView view(dot("Up"));
    ASSERT_EQ(view.error(), QString());

    EXPECT_DOUBLE_EQ(view.property("implicitWidth").toDouble(), 104);
    EXPECT_DOUBLE_EQ(view.property("implicitHeight").toDouble(), 104);
}

TEST(StatusDotTest, UpHasASteadyHaloOfTwiceItsSize)
{
    ThemeView view(dot("Up"));
    const QColor ground = view.themeColor("background");
    const QColor up = view.themeColor("statusUp");

    EXPECT_TRUE(looksLike(view.colorAt({middle, middle}), up));
    EXPECT_TRUE(looksLike(view.colorAt({middle + 18, middle}), up));
    EXPECT_TRUE(looksLike(view.colorAt({middle + 23, middle}), laidOver(ground, up, 0.15)));
    EXPECT_TRUE(looksLike(view.colorAt({middle + 38, middle}), laidOver(ground, up, 0.15)));
    EXPECT_TRUE(looksLike(view.colorAt({middle + 42, middle}), ground));
    EXPECT_FALSE(isPulsing(view));
}

TEST(StatusDotTest, DownHasASwellingHalo)
{
    ThemeView view(dot("Down"));
    QQuickItem &halo = haloOf(view);

    EXPECT_EQ(view.property("pulse"), QVariant(true));
    EXPECT_TRUE(waitFor([&] { return isPulsing(view); })) << "once the window is exposed";
    EXPECT_TRUE(waitFor([&] { return halo.property("swell").toDouble() > 0.01; }));
    EXPECT_TRUE(looksLike(view.colorAt({middle, middle}), view.themeColor("statusDown")));
}

TEST(StatusDotTest, TheHaloGrowsFromSmallAndStrongToLargeAndInvisible)
{
    ThemeView view(dot("Down"));
    QQuickItem &halo = haloOf(view);
    view.setProperty("pulse", false);

    EXPECT_DOUBLE_EQ(halo.property("diameter").toDouble(), 2.4 * size * 0.85);
    EXPECT_DOUBLE_EQ(halo.opacity(), 0.7);
    EXPECT_TRUE(looksLike(
        view.colorAt({middle + 30, middle}),
        laidOver(view.themeColor("background"), view.themeColor("statusDown"), 0.2 * 0.7)));

    halo.setProperty("swell", 1.0);

    EXPECT_DOUBLE_EQ(halo.property("diameter").toDouble(), 2.4 * size * 1.4);
    EXPECT_DOUBLE_EQ(halo.opacity(), 0);
}

TEST(StatusDotTest, PausedHasNoHaloAndNoAnimationEvenWhilePulseToggles)
{
    ThemeView view(dot("Paused"));
    const QColor ground = view.themeColor("background");

    for (const bool pulse : {true, false, true}) {
        view.setProperty("pulse", pulse);
        EXPECT_FALSE(isPulsing(view));
        EXPECT_FALSE(showsHalo(view));
        EXPECT_TRUE(looksLike(view.colorAt({middle + 24, middle}), ground));
        EXPECT_TRUE(looksLike(view.colorAt({middle, middle}),
                              laidOver(ground, view.themeColor("statusMuted"), 1)));
    }
}

TEST(StatusDotTest, PendingLooksLikePaused)
{
    ThemeView view(dot("Pending"));

    EXPECT_FALSE(showsHalo(view));
    EXPECT_TRUE(
        looksLike(view.colorAt({middle, middle}),
                  laidOver(view.themeColor("background"), view.themeColor("statusMuted"), 1)));
}

TEST(StatusDotTest, HalosPulseTogetherAndTwentyTimesASecond)
{
    ThemeView view("Item { width: 240; height: 110\n"
                   "StatusDot { size: 40; status: MonitorStatus.Down }\n"
                   "StatusDot { objectName: 'subject'; x: 120; size: 40\n"
                   "status: MonitorStatus.Down } }");
    ASSERT_EQ(view.error(), QString());
    ASSERT_TRUE(waitFor([&] { return isPulsing(view); }));
    QQuickItem &halo = haloOf(view);
    int steps = 0;
    QObject::connect(&halo, &QQuickItem::opacityChanged, [&] { ++steps; });
    QElapsedTimer elapsed;
    elapsed.start();
    ASSERT_TRUE(waitFor([&] { return steps == 10; }));
    EXPECT_GE(elapsed.elapsed(), 9 * 50 * 0.9) << "no frame that nobody would miss";

    QList<double> swells;
    for (QObject *found : view.window().findChildren<QObject *>(u"halo"_s))
        swells += found->property("swell").toDouble();
    EXPECT_EQ(std::ranges::count(swells, swells.value(0)), swells.size());
}

TEST(StatusDotTest, TheHaloIsStillWhileItsWindowIsHidden)
{
    ThemeView view(dot("Down"));
    ASSERT_TRUE(waitFor([&] { return isPulsing(view); }));

    view.window().hide();
    EXPECT_TRUE(waitFor([&] { return !isPulsing(view); }));
    EXPECT_EQ(haloOf(view).property("swell"), QVariant(0.0));

    view.window().show();
    EXPECT_TRUE(waitFor([&] { return isPulsing(view); }));
}

TEST(StatusDotTest, TheHaloIsStillWhileTheDotIsHidden)
{
    ThemeView view(dot("Down"));

    view.item()->setVisible(false);

    EXPECT_FALSE(isPulsing(view));
}

TEST(StatusDotTest, TheHaloIsStillIfMotionIsReduced)
{
    ThemeView view(dot("Down"));

    view.reduceMotion();

    EXPECT_FALSE(isPulsing(view));
    EXPECT_TRUE(haloOf(view).isVisible());
    EXPECT_DOUBLE_EQ(haloOf(view).opacity(), 0.7);
}

TEST(StatusDotTest, AMonitorThatRecoversLosesItsHalo)
{
    ThemeView view(dot("Down"));

    view.setProperty("status", view.evaluate(u"MonitorStatus.Up"_s));

    EXPECT_FALSE(isPulsing(view));
    EXPECT_TRUE(looksLike(view.colorAt({middle, middle}), view.themeColor("statusUp")));
}

} // namespace ostrel::test
