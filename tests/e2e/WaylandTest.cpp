#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelProgram.h"
#include "PrivateBus.h"
#include "StatusNotifierHost.h"
#include "StubNotificationDaemon.h"
#include "WaitFor.h"
#include "WaylandDesktop.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class WaylandTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (const QString obstacle = WaylandDesktop::obstacle(); !obstacle.isEmpty())
            GTEST_SKIP() << qPrintable(obstacle);
        desktop = std::make_unique<WaylandDesktop>();
        ASSERT_TRUE(desktop->isReady());
        program.setEnvironment(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
        program.setEnvironment(u"WAYLAND_DISPLAY"_s, desktop->name());
        program.setEnvironment(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
    }

    /// Starts the program and covers its window with another program's.
    void startBehindAStranger()
    {
        ASSERT_TRUE(program.start());
        ASSERT_TRUE(waitFor([this] { return desktop->hasWindow(u"Ostrel"_s); }));
        ASSERT_TRUE(desktop->showStranger());
    }
    /// Starts the program, closes its window and shows another program's.
    void startAndClose()
    {
        ASSERT_NO_FATAL_FAILURE(startBehindAStranger());
        desktop->closeWindow(u"Ostrel"_s);
        ASSERT_TRUE(waitFor([this] { return !desktop->hasWindow(u"Ostrel"_s); }));
    }
    void startAgain(const QByteArray &token)
    {
        program.setEnvironment(u"XDG_ACTIVATION_TOKEN"_s, QString::fromLatin1(token));
        EXPECT_EQ(program.run({}).exitCode, 0);
    }

    /// Waits until the program's window has the focus and is what the user sees.
    [[nodiscard]] bool comesToTheFront() const
    {
        return waitFor([this] { return desktop->frontWindow() == u"Ostrel"_s; });
    }

    PrivateBus bus;
    std::unique_ptr<WaylandDesktop> desktop;
    OstrelProgram program;
};

} // namespace

TEST_F(WaylandTest, ASecondStartWithATokenBringsTheWindowToTheFront)
{
    ASSERT_NO_FATAL_FAILURE(startBehindAStranger());
    startAgain("unknown");
    EXPECT_EQ(desktop->frontWindow(), u"Stranger"_s)
        << "this compositor raises no window without its token";
    startAgain(desktop->token());
    EXPECT_TRUE(comesToTheFront());
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(WaylandTest, ASecondStartBringsAClosedWindowToTheFront)
{
    ASSERT_NO_FATAL_FAILURE(startAndClose());
    startAgain(desktop->token());
    EXPECT_TRUE(comesToTheFront());
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(WaylandTest, TheFirstStartComesToTheFront)
{
    ASSERT_TRUE(desktop->showStranger());
    program.setEnvironment(u"XDG_ACTIVATION_TOKEN"_s, QString::fromLatin1(desktop->token()));
    ASSERT_TRUE(program.start());
    EXPECT_TRUE(comesToTheFront());
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(WaylandTest, AClickOnANotificationBringsTheWindowToTheFront)
{
    const QByteArray closed = "http://127.0.0.1:" + QByteArray::number(closedPort()) + '/';
    program.writeMonitors({webMonitor(u"Shop"_s, closed)});
    StubNotificationDaemon daemon(bus, {u"actions"_s});
    ASSERT_NO_FATAL_FAILURE(startAndClose());
    ASSERT_TRUE(waitFor([&] { return !daemon.notifications().isEmpty(); }));
    daemon.handOutToken(StubNotificationDaemon::firstId, QString::fromLatin1(desktop->token()));
    daemon.click(StubNotificationDaemon::firstId);
    EXPECT_TRUE(comesToTheFront());
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(WaylandTest, OpenOstrelInTheStatusBarBringsTheWindowToTheFront)
{
    StatusNotifierHost host(bus);
    ASSERT_NO_FATAL_FAILURE(startBehindAStranger());
    ASSERT_TRUE(waitFor([&] { return host.hasItem(); }));
    host.passToken(desktop->token());
    ASSERT_TRUE(host.choose(u"Open Ostrel"_s));
    EXPECT_TRUE(comesToTheFront());

    desktop->closeWindow(u"Ostrel"_s);
    ASSERT_TRUE(waitFor([this] { return !desktop->hasWindow(u"Ostrel"_s); }));
    host.passToken(desktop->token());
    host.activateItem();
    EXPECT_TRUE(comesToTheFront());
    EXPECT_EQ(program.stop(), 0);
}

} // namespace ostrel::test
