#include "FreedesktopStatusBarHost.h"

#include "PortableStatusBarHost.h"
#include "Printers.h"
#include "PrivateBus.h"
#include "SilentPanel.h"
#include "WaitFor.h"

#include <QDBusConnectionInterface>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

TEST(FreedesktopStatusBarHostTest, SignalsEveryHostThatAppears)
{
    PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    FreedesktopStatusBarHost host;
    host.follow(bus.connect());
    EXPECT_TRUE(host.isAwaited());
    int comings = 0;
    QObject::connect(&host, &StatusBarHost::appeared, [&] { ++comings; });
    QDBusConnection panel = bus.connect();
    const QString service = u"org.kde.StatusNotifierWatcher"_s;
    for (int coming = 1; coming <= 2; ++coming) {
        ASSERT_TRUE(panel.registerService(service));
        EXPECT_TRUE(waitFor([&] { return comings == coming; }));
        EXPECT_FALSE(host.isAwaited());
        panel.unregisterService(service);
        EXPECT_TRUE(waitFor([&] { return host.isAwaited(); }));
    }
}

TEST(FreedesktopStatusBarHostTest, FindsAHostThatIsThereAlready)
{
    PrivateBus bus;
    ASSERT_TRUE(bus.connect().registerService(u"org.kde.StatusNotifierWatcher"_s));
    FreedesktopStatusBarHost host;
    host.follow(bus.connect());
    int comings = 0;
    QObject::connect(&host, &StatusBarHost::appeared, [&] { ++comings; });
    EXPECT_TRUE(waitFor([&] { return comings > 0; }));
    EXPECT_FALSE(host.isAwaited());
    EXPECT_EQ(comings, 1);
}

TEST(FreedesktopStatusBarHostTest, AHostIsThereOnceItAnswers)
{
    PrivateBus bus;
    SilentPanel panel(bus);
    FreedesktopStatusBarHost host;
    host.follow(bus.connect());
    int comings = 0;
    QObject::connect(&host, &StatusBarHost::appeared, [&] { ++comings; });
    EXPECT_FALSE(host.isSilent());
    ASSERT_TRUE(waitFor([&] { return panel.callCount() > 0; }));
    EXPECT_TRUE(host.isSilent());
    EXPECT_TRUE(host.isAwaited());
    EXPECT_EQ(comings, 0);
    panel.recover();
    EXPECT_TRUE(waitFor([&] { return comings == 1; }));
    EXPECT_FALSE(host.isSilent());
    EXPECT_FALSE(host.isAwaited());
}

TEST(FreedesktopStatusBarHostTest, SignalsThatAHungHostHasGone)
{
    PrivateBus bus;
    std::optional<SilentPanel> panel(std::in_place, bus);
    const QDBusConnection connection = bus.connect();
    FreedesktopStatusBarHost host;
    host.follow(connection);
    int goings = 0;
    QObject::connect(&host, &StatusBarHost::disappeared, [&] { ++goings; });
    ASSERT_TRUE(waitFor([&] { return host.isSilent(); }));
    EXPECT_EQ(goings, 0);
    panel.reset();
    EXPECT_TRUE(waitFor([&] { return goings == 1; }));
    // The panel has refused the question meanwhile. The bus delivers in order.
    (void)connection.interface()->registeredServiceNames();
    QCoreApplication::processEvents();
    EXPECT_FALSE(host.isSilent());
    EXPECT_EQ(goings, 1);
}

TEST(FreedesktopStatusBarHostTest, IsNotAwaitedWithoutABus)
{
    const FreedesktopStatusBarHost host;
    EXPECT_FALSE(host.isAwaited());
    EXPECT_EQ(host.menuText(u"Shop"_s), u"Shop"_s);
}

TEST(FreedesktopStatusBarHostTest, EscapesCharactersThatWouldMarkAKey)
{
    const FreedesktopStatusBarHost host;
    const std::pair<const char *, const char *> texts[] = {
        {"", ""},
        {"Field Notes", "Field Notes"},
        {"api_prod", "api__prod"},
        {"__x_", "____x__"},
        {"Tom & Jerry", "Tom && Jerry"},
        {"a & b & c", "a && b & c"},
        {"last &", "last &&"},
        {"both & and_here", "both && and\u02CDhere"},
    };
    for (const auto &[name, written] : texts)
        EXPECT_EQ(host.menuText(QString::fromUtf8(name)), QString::fromUtf8(written));
}

TEST(FreedesktopStatusBarHostTest, SharesThePaletteOnDesktopsOfTheToolkit)
{
    const FreedesktopStatusBarHost host;
    const std::pair<const char *, bool> desktops[] = {
        {"KDE", true},           {"LXQt", true},     {"XFCE", false}, {"", false},
        {"ubuntu:GNOME", false}, {"Fork:KDE", true}, {"KDEx", false},
    };
    for (const auto &[name, isShared] : desktops) {
        qputenv("XDG_CURRENT_DESKTOP", name);
        EXPECT_EQ(host.hasOurPalette(), isShared) << name;
    }
}

TEST(PortableStatusBarHostTest, EscapesTextsAsTheToolkitDoes)
{
    EXPECT_EQ(PortableStatusBarHost().menuText(u"a & b_c & d"_s), u"a && b_c && d"_s);
}

} // namespace
} // namespace ostrel::test
