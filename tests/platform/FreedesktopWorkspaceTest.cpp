#include "FreedesktopWorkspace.h"

#include "LimitGuard.h"
#include "Platform.h"
#include "Printers.h"
#include "StubFileManager.h"
#include "StubPortal.h"
#include "StubPrograms.h"
#include "WaitFor.h"

#include <QDir>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace ostrel::test {
namespace {

using namespace std::chrono_literals;

const QUrl mailbox(QStringLiteral("mailto:help@shop.example"));
const QUrl website(QStringLiteral("https://shop.example/?a=1&b=$HOME"));
const QStringList openedMailbox = {QStringLiteral("xdg-open mailto:help@shop.example")};

class FreedesktopWorkspaceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(bus.isRunning());
        workspace.follow(bus.connect());
        ASSERT_TRUE(QDir(data.path()).mkdir(QStringLiteral("Ostrel data")));
    }

    [[nodiscard]] QString folder() const { return data.filePath(QStringLiteral("Ostrel data")); }

    [[nodiscard]] QStringList folderAddresses() const
    {
        return {QStringLiteral("file://") + data.path() + QStringLiteral("/Ostrel%20data")};
    }

    /// Waits until exactly @p starts were made of the programs.
    [[nodiscard]] bool haveStarted(const QStringList &starts) const
    {
        return waitFor([&] { return programs.starts() == starts; });
    }

    QTemporaryDir data;
    PrivateBus bus; // Started while PATH still leads to its daemon.
    StubPrograms programs;
    FreedesktopWorkspace workspace;
    FreedesktopWorkspace busless;
};

/// The settings of notifications, desktop by desktop.
struct SettingsCase
{
    const char *name;
    const char *desktop;
    QStringList installed;
    QStringList starts;
};

void PrintTo(const SettingsCase &settingsCase, std::ostream *out)
{
    *out << settingsCase.desktop;
}

class NotificationSettingsTest : public FreedesktopWorkspaceTest,
                                 public testing::WithParamInterface<SettingsCase>
{
};

TEST_F(FreedesktopWorkspaceTest, AProgramGetsTheLimitOfFilesThatThisOneStartedWith)
{
    const LimitGuard guard(512);
    raiseDescriptorLimit();
    raiseDescriptorLimit(); // There is nothing left to raise, and nothing is forgotten.
    programs.add(QStringLiteral("xdg-open"), QStringLiteral("$(ulimit -n)"));
    EXPECT_TRUE(busless.open(website));
    EXPECT_TRUE(haveStarted({QStringLiteral("xdg-open 512")}));
}

TEST_F(FreedesktopWorkspaceTest, AnAddressIsOpenedByThePortal)
{
    const StubPortal portal(bus);
    EXPECT_TRUE(workspace.open(website));
    EXPECT_TRUE(waitFor([&] { return portal.addresses() == QStringList{website.toString()}; }));
}

TEST_F(FreedesktopWorkspaceTest, WhatThePortalOpensIsOpenedOnce)
{
    programs.add(QStringLiteral("xdg-open"));
    {
        const StubPortal portal(bus);
        workspace.open(website);
        ASSERT_TRUE(waitFor([&] { return portal.addresses().size() == 1; }));
    }
    // The answer to the first comes before the bus's to the second.
    workspace.open(mailbox);
    EXPECT_TRUE(haveStarted(openedMailbox));
}

TEST_F(FreedesktopWorkspaceTest, WithoutAPortalAProgramOpensTheAddress)
{
    programs.add(QStringLiteral("xdg-open"));
    EXPECT_TRUE(workspace.open(mailbox));
    EXPECT_TRUE(haveStarted(openedMailbox));
}

TEST_F(FreedesktopWorkspaceTest, AnAddressThatThePortalRefusesIsOpenedByAProgram)
{
    programs.add(QStringLiteral("xdg-open"));
    const StubPortal portal(bus, StubPortal::Behaviour::refuses);
    EXPECT_TRUE(workspace.open(mailbox));
    EXPECT_TRUE(haveStarted(openedMailbox));
    EXPECT_EQ(portal.addresses().size(), 1);
}

TEST_F(FreedesktopWorkspaceTest, APortalThatDoesNotAnswerIsGivenUp)
{
    programs.add(QStringLiteral("xdg-open"));
    const StubPortal portal(bus, StubPortal::Behaviour::hangs);
    FreedesktopWorkspace impatient(50ms);
    impatient.follow(bus.connect());
    EXPECT_TRUE(impatient.open(mailbox));
    EXPECT_TRUE(haveStarted(openedMailbox));
    EXPECT_EQ(portal.addresses().size(), 1);
}

TEST_F(FreedesktopWorkspaceTest, WithoutABusAProgramOpensTheAddress)
{
    programs.add(QStringLiteral("xdg-open"));
    EXPECT_TRUE(busless.open(website));
    // No shell reads the address on its way.
    EXPECT_TRUE(haveStarted({QStringLiteral("xdg-open https://shop.example/?a=1&b=$HOME")}));
}

TEST_F(FreedesktopWorkspaceTest, WithoutABusOrAProgramNothingIsOpened)
{
    EXPECT_FALSE(busless.open(mailbox));
    EXPECT_FALSE(busless.openFolder(folder()));
}

TEST_F(FreedesktopWorkspaceTest, WhatIsNoAddressIsNotOpened)
{
    programs.add(QStringLiteral("xdg-open"));
    for (const QString &text : {QString(), QStringLiteral("shop.example"), QStringLiteral("--help"),
                                QStringLiteral("https://a b:x/")}) {
        EXPECT_FALSE(workspace.open(QUrl(text)));
        EXPECT_FALSE(busless.open(QUrl(text)));
    }
    busless.open(mailbox);
    EXPECT_TRUE(haveStarted(openedMailbox));
}

TEST_F(FreedesktopWorkspaceTest, AFolderIsShownByTheFileManager)
{
    const StubFileManager fileManager(bus);
    EXPECT_TRUE(workspace.openFolder(folder()));
    EXPECT_TRUE(waitFor([&] { return fileManager.folders() == folderAddresses(); }));
}

TEST_F(FreedesktopWorkspaceTest, WithoutAFileManagerAProgramShowsTheFolder)
{
    programs.add(QStringLiteral("xdg-open"));
    EXPECT_TRUE(workspace.openFolder(folder()));
    EXPECT_TRUE(haveStarted({QStringLiteral("xdg-open ") + folder()}));
}

TEST_F(FreedesktopWorkspaceTest, WithoutABusAProgramShowsTheFolder)
{
    programs.add(QStringLiteral("xdg-open"));
    EXPECT_TRUE(busless.openFolder(folder()));
    EXPECT_TRUE(haveStarted({QStringLiteral("xdg-open ") + folder()}));
}

TEST_F(FreedesktopWorkspaceTest, WhatIsNoFolderIsNeitherShownNorMade)
{
    const QString missing = folder() + QStringLiteral("/missing");
    EXPECT_FALSE(workspace.openFolder(missing));
    EXPECT_FALSE(QDir(missing).exists());
    EXPECT_FALSE(workspace.openFolder(QStringLiteral(".")));
    EXPECT_FALSE(workspace.openFolder(QString()));
}

TEST_P(NotificationSettingsTest, AreTheDesktopsOwn)
{
    qputenv("XDG_CURRENT_DESKTOP", GetParam().desktop);
    for (const QString &name : GetParam().installed)
        programs.add(name);
    EXPECT_EQ(workspace.openNotificationSettings(), !GetParam().starts.isEmpty());
    EXPECT_TRUE(haveStarted(GetParam().starts));
}

const QString gnome = QStringLiteral("gnome-control-center");

INSTANTIATE_TEST_SUITE_P(
    Table, NotificationSettingsTest,
    testing::Values(
        SettingsCase{"Gnome", "GNOME", {gnome}, {gnome + QStringLiteral(" notifications")}},
        SettingsCase{"Ubuntu", "ubuntu:GNOME", {gnome}, {gnome + QStringLiteral(" notifications")}},
        SettingsCase{"Plasma",
                     "KDE",
                     {QStringLiteral("systemsettings"), QStringLiteral("systemsettings5"), gnome},
                     {QStringLiteral("systemsettings kcm_notifications")}},
        SettingsCase{"OlderPlasma",
                     "KDE",
                     {QStringLiteral("systemsettings5")},
                     {QStringLiteral("systemsettings5 kcm_notifications")}},
        SettingsCase{"Xfce",
                     "XFCE",
                     {QStringLiteral("xfce4-notifyd-config")},
                     {QStringLiteral("xfce4-notifyd-config ")}},
        SettingsCase{"Cinnamon",
                     "X-Cinnamon",
                     {QStringLiteral("cinnamon-settings")},
                     {QStringLiteral("cinnamon-settings notifications")}},
        SettingsCase{"Mate",
                     "MATE",
                     {QStringLiteral("mate-notification-properties")},
                     {QStringLiteral("mate-notification-properties ")}},
        SettingsCase{"Lxqt",
                     "LXQt",
                     {QStringLiteral("lxqt-config-notificationd")},
                     {QStringLiteral("lxqt-config-notificationd ")}},
        SettingsCase{"Budgie",
                     "Budgie:GNOME",
                     {QStringLiteral("budgie-control-center"), gnome},
                     {QStringLiteral("budgie-control-center notifications")}},
        SettingsCase{"BudgieWithoutItsOwn",
                     "Budgie:GNOME",
                     {gnome},
                     {gnome + QStringLiteral(" notifications")}},
        SettingsCase{"NotInstalled", "GNOME", {}, {}},
        SettingsCase{"OtherDesktop", "sway", {gnome, QStringLiteral("systemsettings")}, {}},
        SettingsCase{"NoDesktop", "", {gnome, QStringLiteral("systemsettings")}, {}}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace
} // namespace ostrel::test
