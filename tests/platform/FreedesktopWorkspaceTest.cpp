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

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

using namespace std::chrono_literals;

const QUrl mailbox(u"mailto:help@shop.example"_s);
const QUrl website(u"https://shop.example/?a=1&b=$HOME"_s);
const QStringList openedMailbox = {u"xdg-open mailto:help@shop.example"_s};

class FreedesktopWorkspaceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(bus.isRunning());
        workspace.follow(bus.connect());
        ASSERT_TRUE(QDir(data.path()).mkdir(u"Ostrel data"_s));
    }

    [[nodiscard]] QString folder() const { return data.filePath(u"Ostrel data"_s); }

    [[nodiscard]] QStringList folderAddresses() const
    {
        return {u"file://"_s + data.path() + u"/Ostrel%20data"_s};
    }

    /// Waits for the result of opening an address.
    [[nodiscard]] static bool isTaken(const QFuture<bool> &result)
    {
        EXPECT_TRUE(waitFor([&] { return result.isFinished(); }));
        return result.isFinished() && result.result();
    }
    /// Waits until the programs have been started exactly as in @p starts.
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

/// The notification settings, desktop by desktop.
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

TEST_F(FreedesktopWorkspaceTest, AProgramGetsTheFileLimitThatThisOneStartedWith)
{
    const LimitGuard guard(512);
    raiseDescriptorLimit();
    raiseDescriptorLimit(); // Nothing is left to raise, and the original limit is kept.
    programs.add(u"xdg-open"_s, u"$(ulimit -n)"_s);
    EXPECT_TRUE(isTaken(busless.open(website)));
    EXPECT_TRUE(haveStarted({u"xdg-open 512"_s}));
}

TEST_F(FreedesktopWorkspaceTest, AnAddressIsOpenedByThePortal)
{
    const StubPortal portal(bus);
    EXPECT_TRUE(isTaken(workspace.open(website)));
    EXPECT_TRUE(waitFor([&] { return portal.addresses() == QStringList{website.toString()}; }));
}

TEST_F(FreedesktopWorkspaceTest, AnAddressThatThePortalOpensIsOpenedOnce)
{
    programs.add(u"xdg-open"_s);
    {
        const StubPortal portal(bus);
        workspace.open(website);
        ASSERT_TRUE(waitFor([&] { return portal.addresses().size() == 1; }));
    }
    // The portal's answer to the first call arrives before the bus's answer to the second.
    workspace.open(mailbox);
    EXPECT_TRUE(haveStarted(openedMailbox));
}

TEST_F(FreedesktopWorkspaceTest, WithoutAPortalAProgramOpensTheAddress)
{
    programs.add(u"xdg-open"_s);
    EXPECT_TRUE(isTaken(workspace.open(mailbox)));
    EXPECT_TRUE(haveStarted(openedMailbox));
}

TEST_F(FreedesktopWorkspaceTest, AnAddressThatThePortalRefusesIsOpenedByAProgram)
{
    programs.add(u"xdg-open"_s);
    const StubPortal portal(bus, StubPortal::Behaviour::refuses);
    EXPECT_TRUE(isTaken(workspace.open(mailbox)));
    EXPECT_TRUE(haveStarted(openedMailbox));
    EXPECT_EQ(portal.addresses().size(), 1);
}

TEST_F(FreedesktopWorkspaceTest, APortalThatDoesNotAnswerIsGivenUp)
{
    programs.add(u"xdg-open"_s);
    const StubPortal portal(bus, StubPortal::Behaviour::hangs);
    FreedesktopWorkspace impatient(50ms);
    impatient.follow(bus.connect());
    EXPECT_TRUE(isTaken(impatient.open(mailbox)));
    EXPECT_TRUE(haveStarted(openedMailbox));
    EXPECT_EQ(portal.addresses().size(), 1);
}

TEST_F(FreedesktopWorkspaceTest, WithoutABusAProgramOpensTheAddress)
{
    programs.add(u"xdg-open"_s);
    EXPECT_TRUE(isTaken(busless.open(website)));
    // No shell interprets the address on its way.
    EXPECT_TRUE(haveStarted({u"xdg-open https://shop.example/?a=1&b=$HOME"_s}));
}

TEST_F(FreedesktopWorkspaceTest, WithoutABusOrAProgramNothingIsOpened)
{
    EXPECT_FALSE(isTaken(busless.open(mailbox)));
    EXPECT_FALSE(busless.openFolder(folder()));
}

TEST_F(FreedesktopWorkspaceTest, AnAddressThatNoProgramTakesIsReported)
{
    programs.add(u"xdg-open"_s, u"$*"_s, u"exit 3"_s);
    EXPECT_FALSE(isTaken(busless.open(mailbox)));
    EXPECT_FALSE(isTaken(workspace.open(mailbox))) << "there is no portal either";
    EXPECT_TRUE(haveStarted(openedMailbox + openedMailbox));
}

TEST_F(FreedesktopWorkspaceTest, AProgramThatCantBeStartedHasNotTakenTheAddress)
{
    programs.addBroken(u"xdg-open"_s);
    EXPECT_FALSE(isTaken(busless.open(mailbox)));
}

TEST_F(FreedesktopWorkspaceTest, AProgramThatIsStillAtWorkHasTakenTheAddress)
{
    programs.add(u"xdg-open"_s, u"$*"_s, u"exec /bin/sleep 2"_s);
    FreedesktopWorkspace impatient(50ms);
    EXPECT_TRUE(isTaken(impatient.open(mailbox)));
}

TEST_F(FreedesktopWorkspaceTest, AnInvalidAddressIsNotOpened)
{
    programs.add(u"xdg-open"_s);
    for (const QString &text : {QString(), u"shop.example"_s, u"--help"_s, u"https://a b:x/"_s}) {
        EXPECT_FALSE(isTaken(workspace.open(QUrl(text))));
        EXPECT_FALSE(isTaken(busless.open(QUrl(text))));
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
    programs.add(u"xdg-open"_s);
    EXPECT_TRUE(workspace.openFolder(folder()));
    EXPECT_TRUE(haveStarted({u"xdg-open "_s + folder()}));
}

TEST_F(FreedesktopWorkspaceTest, WithoutABusAProgramShowsTheFolder)
{
    programs.add(u"xdg-open"_s);
    EXPECT_TRUE(busless.openFolder(folder()));
    EXPECT_TRUE(haveStarted({u"xdg-open "_s + folder()}));
}

TEST_F(FreedesktopWorkspaceTest, AMissingOrRelativeFolderIsNeitherShownNorMade)
{
    const QString missing = folder() + u"/missing"_s;
    EXPECT_FALSE(workspace.openFolder(missing));
    EXPECT_FALSE(QDir(missing).exists());
    EXPECT_FALSE(workspace.openFolder(u"."_s));
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

const QString gnome = u"gnome-control-center"_s;

INSTANTIATE_TEST_SUITE_P(
    Table, NotificationSettingsTest,
    testing::Values(
        SettingsCase{"Gnome", "GNOME", {gnome}, {gnome + u" notifications"_s}},
        SettingsCase{"Ubuntu", "ubuntu:GNOME", {gnome}, {gnome + u" notifications"_s}},
        SettingsCase{"Plasma",
                     "KDE",
                     {u"systemsettings"_s, u"systemsettings5"_s, gnome},
                     {u"systemsettings kcm_notifications"_s}},
        SettingsCase{
            "OlderPlasma", "KDE", {u"systemsettings5"_s}, {u"systemsettings5 kcm_notifications"_s}},
        SettingsCase{"Xfce", "XFCE", {u"xfce4-notifyd-config"_s}, {u"xfce4-notifyd-config "_s}},
        SettingsCase{"Cinnamon",
                     "X-Cinnamon",
                     {u"cinnamon-settings"_s},
                     {u"cinnamon-settings notifications"_s}},
        SettingsCase{"Mate",
                     "MATE",
                     {u"mate-notification-properties"_s},
                     {u"mate-notification-properties "_s}},
        SettingsCase{
            "Lxqt", "LXQt", {u"lxqt-config-notificationd"_s}, {u"lxqt-config-notificationd "_s}},
        SettingsCase{"Budgie",
                     "Budgie:GNOME",
                     {u"budgie-control-center"_s, gnome},
                     {u"budgie-control-center notifications"_s}},
        SettingsCase{"BudgieWithoutItsOwn", "Budgie:GNOME", {gnome}, {gnome + u" notifications"_s}},
        SettingsCase{"NotInstalled", "GNOME", {}, {}},
        SettingsCase{"OtherDesktop", "sway", {gnome, u"systemsettings"_s}, {}},
        SettingsCase{"NoDesktop", "", {gnome, u"systemsettings"_s}, {}}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace
} // namespace ostrel::test
