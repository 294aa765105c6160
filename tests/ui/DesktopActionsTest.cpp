#include "DesktopActions.h"

#include "DesktopFakes.h"
#include "Printers.h"
#include "ProductConstants.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace ostrel::test {
namespace {

class DesktopActionsTest : public testing::Test
{
protected:
    QTemporaryDir folder;
    RecordingWorkspace workspace;
};

TEST_F(DesktopActionsTest, HelpIsAMessageToTheSupport)
{
    DesktopActions(workspace, folder.path()).getHelp();
    EXPECT_EQ(workspace.opened, QStringList{supportAddress().toString()});
}

TEST_F(DesktopActionsTest, NotificationSettingsAreTheDesktops)
{
    DesktopActions(workspace, folder.path()).openNotificationSettings();
    EXPECT_EQ(workspace.opened, QStringList{QStringLiteral("notifications")});
}

TEST_F(DesktopActionsTest, TheDataFolderIsRevealedButNotMade)
{
    const QString missing = folder.filePath(QStringLiteral("Ostrel"));
    DesktopActions(workspace, missing).revealDataFolder();
    EXPECT_EQ(workspace.opened, QStringList{missing});
    EXPECT_FALSE(QDir(missing).exists());
}

TEST_F(DesktopActionsTest, ARelativeDataFolderIsRevealedAsAnAbsoluteOne)
{
    DesktopActions(workspace, QStringLiteral("Ostrel")).revealDataFolder();
    EXPECT_EQ(workspace.opened, QStringList{QDir::current().filePath(QStringLiteral("Ostrel"))});
}

TEST_F(DesktopActionsTest, TheRealDataFolderIsShown)
{
    qputenv("HOME", folder.path().toLocal8Bit());
    EXPECT_EQ(
        DesktopActions(workspace, folder.filePath(QStringLiteral("share/Ostrel"))).dataFolderText(),
        QStringLiteral("~/share/Ostrel/"));
    EXPECT_EQ(DesktopActions(workspace, QStringLiteral("/srv/Ostrel")).dataFolderText(),
              QStringLiteral("/srv/Ostrel/"));
}

} // namespace
} // namespace ostrel::test
