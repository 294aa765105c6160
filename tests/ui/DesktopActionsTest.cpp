#include "DesktopActions.h"

#include "DesktopFakes.h"
#include "Printers.h"
#include "ProductConstants.h"
#include "WaitFor.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

class DesktopActionsTest : public testing::Test
{
protected:
    QTemporaryDir folder;
    RecordingWorkspace workspace;
};

TEST_F(DesktopActionsTest, HelpOpensAMessageToTheSupport)
{
    DesktopActions(workspace, folder.path()).getHelp();
    EXPECT_EQ(workspace.opened, QStringList{supportAddress().toString()});
}

TEST_F(DesktopActionsTest, WhetherAMailProgramTakesTheMessageIsReported)
{
    DesktopActions actions(workspace, folder.path());
    const QSignalSpy answers(&actions, &DesktopActions::helpAnswered);
    for (const bool isTaking : {false, true}) {
        workspace.isTaking = isTaking;
        actions.getHelp();
        ASSERT_TRUE(waitFor([&] { return answers.count() == (isTaking ? 2 : 1); }));
        EXPECT_EQ(answers.last(), QVariantList{isTaking});
    }
}

TEST_F(DesktopActionsTest, NotificationSettingsAreOpenedByTheDesktop)
{
    DesktopActions(workspace, folder.path()).openNotificationSettings();
    EXPECT_EQ(workspace.opened, QStringList{u"notifications"_s});
}

TEST_F(DesktopActionsTest, TheDataFolderIsRevealedButNotMade)
{
    const QString missing = folder.filePath(u"Ostrel"_s);
    DesktopActions(workspace, missing).revealDataFolder();
    EXPECT_EQ(workspace.opened, QStringList{missing});
    EXPECT_FALSE(QDir(missing).exists());
}

TEST_F(DesktopActionsTest, ARelativeDataFolderIsRevealedAsAnAbsoluteOne)
{
    DesktopActions(workspace, u"Ostrel"_s).revealDataFolder();
    EXPECT_EQ(workspace.opened, QStringList{QDir::current().filePath(u"Ostrel"_s)});
}

TEST_F(DesktopActionsTest, TheRealDataFolderIsShown)
{
    qputenv("HOME", folder.path().toLocal8Bit());
    EXPECT_EQ(DesktopActions(workspace, folder.filePath(u"share/Ostrel"_s)).dataFolderText(),
              u"~/share/Ostrel/"_s);
    EXPECT_EQ(DesktopActions(workspace, u"/srv/Ostrel"_s).dataFolderText(), u"/srv/Ostrel/"_s);
}

} // namespace
} // namespace ostrel::test
