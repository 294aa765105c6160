#include "WindowPlacement.h"

#include "Printers.h"
#include "PrivatePreferences.h"
#include "WaitFor.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

/// A window whose placement is kept, as if the program had been started anew.
struct PlacedWindow
{
    PlacedWindow()
    {
        window.setFlag(
            Qt::FramelessWindowHint); // This platform draws frames, but doesn't place them.
        window.setMinimumSize({300, 200});
        window.setGeometry(40, 30, 500, 400);
        placement.setProperty("name", u"test"_s);
        placement.setWindow(&window);
    }

    void show()
    {
        placement.restore();
        window.setVisible(true);
        QCoreApplication::processEvents();
    }

    QQuickWindow window;
    WindowPlacement placement;
};

class WindowPlacementTest : public testing::Test
{
protected:
    void set(const QString &key, const QVariant &value) { values.setValue(key, value); }

    /// The window of the next start.
    PlacedWindow &startAgain()
    {
        QCoreApplication::processEvents();
        placed.reset();
        placed.emplace();
        placed->show();
        return *placed;
    }

    PrivatePreferences preferences;
    QSettings values{u"Ostrel"_s, u"Ostrel"_s};
    std::optional<PlacedWindow> placed;
};

TEST_F(WindowPlacementTest, AWindowThatWasNeverMovedIsLeftToTheDesktop)
{
    EXPECT_EQ(startAgain().window.geometry(), QRect(40, 30, 500, 400));
    placed.reset();
    EXPECT_TRUE(values.allKeys().isEmpty());
}

TEST_F(WindowPlacementTest, SizeAndPlaceAreThereAgainAtTheNextStart)
{
    startAgain().window.setGeometry(120, 90, 610, 420);
    startAgain();
    EXPECT_EQ(placed->window.size(), QSize(610, 420));
    EXPECT_EQ(placed->window.framePosition(), QPoint(120, 90));
}

TEST_F(WindowPlacementTest, WhatChangedJustBeforeItIsClosedIsStored)
{
    startAgain().window.setGeometry(120, 90, 610, 420);
    QCoreApplication::processEvents();
    placed->window.close();
    EXPECT_TRUE(waitFor([this] { return values.value(u"testSize"_s) == QSize(610, 420); }));
    EXPECT_TRUE(waitFor([this] { return values.value(u"testPlace"_s) == QPoint(120, 90); }));
}

TEST_F(WindowPlacementTest, WhatChangedJustBeforeTheProgramEndsIsStored)
{
    startAgain().window.setGeometry(120, 90, 610, 420);
    QCoreApplication::processEvents();
    QMetaObject::invokeMethod(qApp, "aboutToQuit", Qt::DirectConnection);
    EXPECT_TRUE(waitFor([this] { return values.contains(u"testSize"_s); }));
    EXPECT_EQ(values.value(u"testSize"_s), QSize(610, 420));
}

TEST_F(WindowPlacementTest, AMaximisedWindowIsMaximisedAgainAndKeepsTheSizeFromBefore)
{
    startAgain().window.resize(610, 420);
    EXPECT_TRUE(waitFor([this] { return values.contains(u"testSize"_s); }));
    placed->window.setWindowStates(Qt::WindowMaximized);
    QCoreApplication::processEvents();
    startAgain();
    EXPECT_EQ(placed->window.windowStates(), Qt::WindowMaximized);
    EXPECT_EQ(values.value(u"testSize"_s).toSize(), QSize(610, 420));
    placed->window.setWindowStates(Qt::WindowNoState);
    startAgain();
    EXPECT_EQ(placed->window.windowStates(), Qt::WindowNoState);
}

TEST_F(WindowPlacementTest, AMinimisedOrFullScreenWindowChangesNothing)
{
    startAgain().window.resize(610, 420);
    startAgain().window.setWindowStates(Qt::WindowFullScreen);
    startAgain();
    EXPECT_EQ(placed->window.windowStates(), Qt::WindowNoState);
    EXPECT_EQ(placed->window.size(), QSize(610, 420));
}

TEST_F(WindowPlacementTest, APlaceOutsideAllScreensOfNowIsNotUsed)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    for (const QPoint outside : {screen.bottomRight(), QPoint(-490, 0), QPoint(0, -40)}) {
        set(u"testPlace"_s, outside);
        EXPECT_EQ(startAgain().window.position(), QPoint(40, 30)) << outside.x();
    }
    set(u"testPlace"_s, screen.bottomLeft() - QPoint(400, 40));
    EXPECT_EQ(startAgain().window.framePosition(), screen.bottomLeft() - QPoint(400, 40));
}

TEST_F(WindowPlacementTest, ASizeIsBoundedByTheScreenAndByTheWindowsMinimum)
{
    set(u"testSize"_s, QSize(100'000, 100'000));
    EXPECT_EQ(startAgain().window.size(), QGuiApplication::primaryScreen()->availableSize());
    set(u"testSize"_s, QSize(1, 1));
    EXPECT_EQ(startAgain().window.size(), QSize(300, 200));
}

TEST_F(WindowPlacementTest, ValuesThatSomebodyHasBrokenAreIgnored)
{
    set(u"testSize"_s, u"large"_s);
    set(u"testPlace"_s, 7);
    set(u"testIsMaximized"_s, u"perhaps not"_s);
    startAgain();
    EXPECT_EQ(placed->window.position(), QPoint(40, 30));
    EXPECT_EQ(placed->window.size(), QSize(500, 400));
}

TEST_F(WindowPlacementTest, AWindowOverAnotherIsCentredUntilItIsMoved)
{
    QQuickWindow other;
    other.setFlag(Qt::FramelessWindowHint);
    other.setGeometry(100, 100, 600, 500);
    other.show();
    const auto open = [&]() -> QQuickWindow & {
        QCoreApplication::processEvents();
        placed.reset();
        placed.emplace();
        placed->window.setMinimumSize({300, 200});
        placed->window.setMaximumSize({300, 200});
        placed->window.resize(300, 200);
        placed->placement.setProperty("over", QVariant::fromValue(&other));
        placed->show();
        return placed->window;
    };
    const QPoint middle = QRect(QPoint(250, 250), QSize(300, 200)).topLeft();
    EXPECT_EQ(open().framePosition(), middle);
    EXPECT_EQ(open().framePosition(), middle);
    open().setFramePosition({20, 10});
    EXPECT_EQ(open().framePosition(), QPoint(20, 10));
    EXPECT_FALSE(values.contains(u"testSize"_s)) << "its size is fixed";
}

TEST_F(WindowPlacementTest, AWindowOverAnotherIsOnTheScreenAsAWhole)
{
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    QQuickWindow other;
    other.setGeometry(QRect(room.bottomRight() - QPoint(50, 50), QSize(600, 500)));
    other.show();
    placed.emplace();
    placed->placement.setProperty("over", QVariant::fromValue(&other));
    placed->show();
    EXPECT_TRUE(room.contains(placed->window.geometry()));
}

} // namespace
} // namespace ostrel::test
