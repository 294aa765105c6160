#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "HostileServer.h"
#include "OstrelProgram.h"
#include "PrivateBus.h"
#include "StubNotificationDaemon.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"
#include "WindowManager.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class DemoProgramTest : public testing::Test
{
protected:
    DemoProgramTest()
    {
        QDir().mkpath(temporary());
        program.setEnvironment(u"TMPDIR"_s, temporary());
        program.setEnvironment(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
        program.setArguments({u"--demo"_s});
    }

    [[nodiscard]] QString temporary() const { return program.homeFile(u"tmp"_s); }
    [[nodiscard]] QStringList demoFolders() const
    {
        return QDir(temporary()).entryList({u"Ostrel*"_s}, QDir::Dirs);
    }
    [[nodiscard]] bool hasNotified(const QString &title) const
    {
        return waitFor([&] {
            return std::ranges::any_of(daemon.notifications(),
                                       [&](const auto &sent) { return sent.title == title; });
        });
    }

    PrivateBus bus;
    StubNotificationDaemon daemon{bus};
    OstrelProgram program;
};

} // namespace

TEST_F(DemoProgramTest, ShowsEveryFeatureAtWorkAndLeavesNothingBehind)
{
    ASSERT_TRUE(program.launch());
    for (const auto &title :
         {u"SSL Certificate Expiring"_s, u"Photo Archive is Slow"_s, u"Train Tickets is Down"_s,
          u"Newsroom is Down"_s, u"Backup Vault is Down"_s, u"Train Tickets is Back Up"_s,
          u"Backup Vault is Back Up"_s})
        EXPECT_TRUE(hasNotified(title)) << qPrintable(title);
    ASSERT_EQ(demoFolders().size(), 1);
    const QString folder = temporary() + u'/' + demoFolders().first() + u"/data"_s;
    EXPECT_TRUE(waitFor([&] {
        const auto status = program.run({u"status"_s, u"--data-dir"_s, folder});
        return status.output.contains("UP       Savings Bank");
    })) << "it trusts the certificate of its own site";

    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(demoFolders(), QStringList());
    EXPECT_EQ(QDir(program.dataDir()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList());
    EXPECT_FALSE(QDir(program.homeFile(u"config/Ostrel"_s)).exists());
    EXPECT_FALSE(QFile::exists(program.loginItem()));
}

TEST_F(DemoProgramTest, ASignalDuringItsStartLeavesNothingBehindEither)
{
    ASSERT_TRUE(program.launch());
    ASSERT_TRUE(waitFor([this] { return !demoFolders().isEmpty(); }));
    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(demoFolders(), QStringList());
}

TEST_F(DemoProgramTest, RunsBesideTheUsersOwnAndSaysThatItIsADemo)
{
    VirtualDisplay display;
    WindowManager windows(display);
    ASSERT_TRUE(windows.isReady());
    HostileServer server{answerWith("OK")};
    OstrelProgram own;
    own.writeMonitors({webMonitor(u"Shop"_s, server.url())});
    ASSERT_TRUE(own.start());
    program.showOn(display);
    program.setEnvironment(u"XDG_DATA_HOME"_s, own.homeFile(u"data"_s));
    program.setEnvironment(u"XDG_CONFIG_HOME"_s, own.homeFile(u"config"_s));
    ASSERT_TRUE(program.launch());
    EXPECT_TRUE(waitFor([&] { return windows.hasWindow(u"Ostrel — Demo"_s); }));
    EXPECT_TRUE(program.isRunning());
    EXPECT_TRUE(own.isRunning());
    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(own.stop(), 0);
    EXPECT_EQ(own.readMonitors()->size(), 1);
}

} // namespace ostrel::test
