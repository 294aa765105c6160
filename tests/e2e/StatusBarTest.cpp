#include "DesktopPanel.h"
#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelProgram.h"
#include "Printers.h"
#include "PrivateBus.h"
#include "Screen.h"
#include "StatusNotifierHost.h"
#include "ThemeColors.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"
#include "WindowManager.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class StatusBarTest : public testing::Test
{
protected:
    StatusBarTest()
    {
        program.showOn(display);
        program.setEnvironment(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
        program.setEnvironment(u"XDG_CURRENT_DESKTOP"_s, u"XFCE"_s);
    }

    void startHost() { host = std::make_unique<StatusNotifierHost>(bus); }
    [[nodiscard]] bool waitForItem()
    {
        return waitFor([this] { return host->hasItem(); });
    }
    [[nodiscard]] bool waitForLines(const QStringList &lines)
    {
        const bool isAsExpected = waitFor([&] { return host->lines() == lines; });
        EXPECT_EQ(host->lines().join(u'\n'), lines.join(u'\n'));
        return isAsExpected;
    }
    [[nodiscard]] bool hasWindow() { return windows.hasWindow(u"Ostrel"_s); }
    /// Closes the window as its button does, and waits until it is gone.
    [[nodiscard]] bool closeWindow()
    {
        return waitFor([this] { return hasWindow(); }) && windows.closeWindow(u"Ostrel"_s) &&
               waitFor([this] { return !hasWindow(); });
    }

    /// Makes the shell command @p script what the desktop opens addresses with.
    [[nodiscard]] bool installOpener(const QByteArray &script)
    {
        QFile opener(program.homeFile(u"xdg-open"_s));
        if (!opener.open(QIODevice::WriteOnly))
            return false;
        opener.write("#!/bin/sh\n" + script + "\n");
        opener.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        program.setEnvironment(u"PATH"_s,
                               program.homeFile({}) + u':' + qEnvironmentVariable("PATH"));
        return true;
    }

    using Histories = QHash<QUuid, std::vector<Check>>;

    /// The colour of the bird's body in its largest pixmap.
    [[nodiscard]] QColor birdColor()
    {
        const auto pixmaps = host->itemPixmaps();
        const auto largest = std::ranges::max_element(pixmaps, {}, &ShownPixmap::width);
        if (largest == pixmaps.end())
            return {};
        const int x = largest->width * 38 / 64;
        const int y = largest->height * 46 / 64;
        const auto *pixel = reinterpret_cast<const uchar *>(largest->argb.constData()) +
                            (y * largest->width + x) * 4;
        return {pixel[1], pixel[2], pixel[3], pixel[0]};
    }
    [[nodiscard]] bool isRed() { return birdColor().rgba() == ThemeColors::statusDown().rgba(); }

    /// Answers 200, or 500 while `isBroken`.
    HostileServer::Behaviour answer = [this](HostileConnection &connection, const SeenRequest &) {
        connection.respond(isBroken ? "500 Internal Server Error" : "200 OK", "body");
    };

    std::atomic<bool> isBroken = false;
    HostileServer server{answer};
    HostileServer silent{staySilent};
    VirtualDisplay display;
    WindowManager windows{display};
    PrivateBus bus;
    std::unique_ptr<StatusNotifierHost> host;
    OstrelProgram program;
};

const QStringList commands = {u"-"_s, u"Help & Support"_s, u"Open Ostrel"_s, u"-"_s, u"Quit"_s};

} // namespace

TEST_F(StatusBarTest, WithoutMonitorsTheMenuSaysSo)
{
    startHost();
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitForItem());
    EXPECT_EQ(host->itemText(u"Title"_s), u"Ostrel"_s);
    EXPECT_TRUE(waitForLines(QStringList(u"[No monitors]"_s) + commands));
    EXPECT_FALSE(isRed());
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(StatusBarTest, TheMenuShowsEveryMonitorInOrderWithItsStatus)
{
    Monitor down = portMonitor(u"Tom & Jerry & co"_s, u"127.0.0.1"_s, closedPort());
    Monitor pending = webMonitor(u"Silent"_s, silent.url());
    pending.timeout = Seconds(600);
    Monitor paused = webMonitor(u"__staging_eu_"_s, server.url());
    paused.isEnabled = false;
    program.writeMonitors({pending, down, paused});
    startHost();
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitForItem());
    EXPECT_TRUE(waitForLines(
        QStringList{u"Silent"_s, u"Tom & Jerry & co|DOWN"_s, u"__staging_eu_"_s} + commands));
    for (const ShownEntry &entry : host->entries().first(3))
        EXPECT_TRUE(entry.icon.startsWith("\x89PNG")) << qPrintable(entry.text);
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(StatusBarTest, TheBirdIsRedWhileAnythingIsDownAndTheOpenMenuFollows)
{
    program.writeMonitors({webMonitor(u"Shop"_s, server.url())});
    startHost();
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitForItem());
    const auto trailingText = [this] { return host->entries().value(0).trailingText; };
    ASSERT_TRUE(waitFor([&] { return trailingText().endsWith(u"ms"_s); }));
    EXPECT_FALSE(isRed());
    const int id = host->entries()[0].id;
    const int layoutChanges = host->layoutChanges();
    const int entryChanges = host->entryChanges();

    isBroken = true;
    EXPECT_TRUE(waitFor([&] { return trailingText() == u"DOWN"_s; }));
    EXPECT_TRUE(waitFor([&] { return isRed(); }));
    isBroken = false;
    EXPECT_TRUE(waitFor([&] { return trailingText().endsWith(u"ms"_s); }));
    EXPECT_TRUE(waitFor([&] { return !isRed(); }));

    EXPECT_EQ(host->entries()[0].id, id) << "it is still the entry that may be looked at";
    EXPECT_EQ(host->layoutChanges(), layoutChanges) << "checks change entries, never the menu";
    EXPECT_GE(host->entryChanges(), entryChanges + 2);
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(StatusBarTest, PixmapsComeInEverySizeOfStatusBars)
{
    startHost();
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitForItem());
    QList<int> widths;
    for (const ShownPixmap &pixmap : host->itemPixmaps()) {
        EXPECT_EQ(pixmap.argb.size(), pixmap.width * pixmap.height * 4);
        widths += pixmap.width;
    }
    EXPECT_EQ(widths, QList<int>({16, 22, 24, 32, 48, 64}));
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(StatusBarTest, ClosingTheWindowLeavesTheMenuAndOpenOstrelBringsTheWindowBack)
{
    startHost();
    ASSERT_TRUE(windows.isReady());
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitForItem());
    ASSERT_TRUE(closeWindow());
    EXPECT_TRUE(program.isRunning());
    EXPECT_TRUE(host->choose(u"Open Ostrel"_s));
    EXPECT_TRUE(waitFor([this] { return hasWindow(); }));

    ASSERT_TRUE(closeWindow());
    host->activateItem();
    EXPECT_TRUE(waitFor([this] { return hasWindow(); })) << "a click on the bird does the same";
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(StatusBarTest, QuitEndsTheProgramWithAndWithoutItsWindow)
{
    startHost();
    ASSERT_TRUE(windows.isReady());
    for (const bool hasWindowAtTheEnd : {true, false}) {
        ASSERT_TRUE(program.start());
        ASSERT_TRUE(waitForItem());
        ASSERT_TRUE(hasWindowAtTheEnd || closeWindow());
        EXPECT_TRUE(host->choose(u"Quit"_s));
        EXPECT_EQ(program.waitForEnd(), 0);
        EXPECT_TRUE(waitFor([this] { return !host->hasItem(); }));
    }
}

TEST_F(StatusBarTest, HelpAndSupportBeginsAMessage)
{
    const QString called = program.homeFile(u"called"_s);
    ASSERT_TRUE(installOpener("printf %s \"$1\" > '" + called.toLocal8Bit() + "'"));
    startHost();
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitForItem());
    EXPECT_TRUE(host->choose(u"Help & Support"_s));
    QFile file(called);
    EXPECT_TRUE(waitFor([&] { return file.exists() && file.size() > 0; }));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("mailto:"));
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(StatusBarTest, WithoutAMailProgramHelpAndSupportShowsTheWindow)
{
    ASSERT_TRUE(installOpener("exit 3"));
    startHost();
    ASSERT_TRUE(windows.isReady());
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitForItem());
    ASSERT_TRUE(closeWindow());
    EXPECT_TRUE(host->choose(u"Help & Support"_s));
    EXPECT_TRUE(waitFor([this] { return hasWindow(); })) << "where the address can be copied";
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(StatusBarTest, AHostThatComesLateOrComesBackGetsTheItem)
{
    program.writeMonitors({portMonitor(u"A_b"_s, u"127.0.0.1"_s, closedPort())});
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return !program.readChecks().value_or(Histories()).isEmpty(); }))
        << "it has been at work for a while";
    for (int coming = 0; coming < 2; ++coming) {
        startHost();
        ASSERT_TRUE(waitForItem()) << coming;
        EXPECT_TRUE(waitForLines(QStringList(u"A_b|DOWN"_s) + commands)) << coming;
        EXPECT_TRUE(isRed()) << coming;
        host.reset();
    }
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(StatusBarTest, ARealPanelShowsTheBirdTakesItsClickAndDrawsItsMenu)
{
    constexpr int enough = 40;
    isBroken = true;
    program.writeMonitors({webMonitor(u"Shop"_s, server.url())});
    DesktopPanel panel(bus, display);
    const Screen screen(display);
    ASSERT_TRUE(windows.isReady());
    ASSERT_TRUE(panel.start());
    ASSERT_TRUE(program.start());
    const auto redBird = [&] {
        return screen.find(ThemeColors::statusDown(), DesktopPanel::height, enough);
    };
    ASSERT_TRUE(waitFor([&] { return redBird().has_value(); }));
    const QPoint bird = *redBird();
    isBroken = false;
    EXPECT_TRUE(waitFor([&] { return !redBird(); }));

    ASSERT_TRUE(closeWindow());
    screen.click(bird, Screen::Button::left);
    EXPECT_TRUE(waitFor([this] { return hasWindow(); }));

    ASSERT_TRUE(closeWindow());
    const QRect belowPanel(0, DesktopPanel::height, 600, 200);
    const QImage before = screen.picture().copy(belowPanel);
    screen.click(bird, Screen::Button::right);
    ASSERT_TRUE(waitFor([&] { return screen.picture().copy(belowPanel) != before; }));
    // The last entry is "Quit". The panel takes keys once it has grabbed them.
    EXPECT_TRUE(waitFor([&] {
        screen.press({u"End"_s, u"Return"_s});
        return !program.isRunning();
    }));
    EXPECT_EQ(program.waitForEnd(), 0);
}

} // namespace ostrel::test
