#include "DesktopUser.h"
#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "HostileServer.h"
#include "OstrelProgram.h"
#include "PrivateBus.h"
#include "StatusNotifierHost.h"
#include "StubNotificationDaemon.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"
#include "WindowManager.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// The program with the portable implementation of the ports.
class PortableProgramTest : public testing::Test
{
protected:
    PortableProgramTest() { program.showOn(display); }

    [[nodiscard]] bool recordsCheck() const
    {
        return waitFor([this] {
            const auto checks = program.readChecks();
            return checks && !checks->value(monitor.id).empty();
        });
    }
    [[nodiscard]] bool showsWindow()
    {
        return waitFor([this] { return windows.hasWindow(u"Ostrel"_s); });
    }

    HostileServer server{answerWith("OK")};
    Monitor monitor = webMonitor(u"Shop"_s, server.url());
    VirtualDisplay display;
    WindowManager windows{display};
    DesktopUser user{display};
    OstrelProgram program;
};

} // namespace

TEST_F(PortableProgramTest, SaysItsVersion)
{
    const auto outcome = program.run({u"--version"_s});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(outcome.output.startsWith("ostrel ")) << outcome.output.constData();
}

TEST_F(PortableProgramTest, WatchesHandsOverAndEnds)
{
    ASSERT_TRUE(windows.isReady());
    program.writeMonitors({monitor});
    ASSERT_TRUE(program.launch());
    ASSERT_TRUE(showsWindow());
    EXPECT_TRUE(recordsCheck());

    ASSERT_TRUE(windows.closeWindow(u"Ostrel"_s));
    ASSERT_TRUE(waitFor([this] { return !windows.hasWindow(u"Ostrel"_s); }));
    EXPECT_EQ(program.run({}).exitCode, 0);
    ASSERT_TRUE(showsWindow()) << "another start shows the window of the first";

    // Repeated until the window has the keyboard focus.
    ASSERT_TRUE(waitFor([this] { return user.press("ctrl+q") && !program.isRunning(); }));
    EXPECT_EQ(program.waitForEnd(), 0);
}

// The toolkit shows notifications beside its item in the status bar.
TEST_F(PortableProgramTest, AClickOnANotificationShowsTheWindow)
{
    PrivateBus bus;
    StatusNotifierHost host(bus);
    StubNotificationDaemon daemon(bus, {u"actions"_s});
    program.setEnvironment(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
    program.setEnvironment(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
    ASSERT_TRUE(windows.isReady());
    monitor.url = u"http://127.0.0.1:%1/"_s.arg(closedPort());
    program.writeMonitors({monitor});
    ASSERT_TRUE(program.launch());
    ASSERT_TRUE(showsWindow());
    ASSERT_TRUE(waitFor([&] { return !daemon.notifications().isEmpty(); }));
    ASSERT_TRUE(windows.closeWindow(u"Ostrel"_s));
    ASSERT_TRUE(waitFor([this] { return !windows.hasWindow(u"Ostrel"_s); }));

    daemon.click(StubNotificationDaemon::firstId);
    EXPECT_TRUE(showsWindow());
    EXPECT_EQ(program.run({u"--quit"_s}).exitCode, 0);
    EXPECT_EQ(program.waitForEnd(), 0);
}

} // namespace ostrel::test
