#include "SidebarNotice.h"

#include "EngineFakes.h"
#include "MonitorStore.h"
#include "ProductConstants.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

class SidebarNoticeTest : public testing::Test
{
protected:
    SidebarNoticeTest()
    {
        QObject::connect(&notice, &SidebarNotice::changed, [this] { ++changes; });
    }
    /// Puts a file where the folder should be.
    static QString blocked(const QString &path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path;
    }
    /// Removes that file, and makes the store notice.
    void makeRoom()
    {
        ASSERT_TRUE(QFile::remove(store.storageDir()));
        store.addMonitor(makeMonitor());
    }

    QTemporaryDir folder;
    MonitorStore store{blocked(folder.filePath(u"data"_s))};
    ScriptedPresence presence;
    SidebarNotice notice{store, presence};
    int changes = 0;
};

const QString offline = u"Offline. Checks wait for the network."_s;

TEST_F(SidebarNoticeTest, SaysThatNothingCanBeSaved)
{
    EXPECT_TRUE(notice.isNeeded());
    EXPECT_EQ(notice.text(), u"Can't save to %1."_s.arg(store.storageDir()));
    EXPECT_EQ(notice.symbol(), u"exclamationmark.triangle.fill"_s);
    EXPECT_EQ(notice.tone(), Tone::Warning);

    makeRoom();
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(notice.isNeeded());
}

TEST_F(SidebarNoticeTest, SaysThatTheNetworkIsAway)
{
    makeRoom();
    presence.setPresent(false);
    EXPECT_TRUE(notice.isNeeded());
    EXPECT_EQ(notice.text(), offline);
    EXPECT_EQ(notice.symbol(), u"network"_s);
    EXPECT_EQ(notice.tone(), Tone::Secondary);

    presence.setPresent(true);
    EXPECT_FALSE(notice.isNeeded());
    EXPECT_EQ(notice.text(), offline) << "while it disappears";
}

TEST_F(SidebarNoticeTest, SaysWhereToWriteWithoutAMailProgram)
{
    makeRoom();
    presence.setPresent(false);
    notice.takeHelpAnswer(false);
    EXPECT_TRUE(notice.isNeeded());
    EXPECT_TRUE(notice.hasAddress());
    EXPECT_EQ(notice.text(), u"No mail program. Write to %1."_s.arg(supportAddress().path()));
    EXPECT_EQ(notice.tone(), Tone::Secondary);

    notice.takeHelpAnswer(true);
    EXPECT_EQ(notice.text(), offline);
    EXPECT_FALSE(notice.hasAddress());
}

TEST_F(SidebarNoticeTest, AProblemThatMayLoseDataIsShownFirst)
{
    presence.setPresent(false);
    EXPECT_NE(notice.text(), offline);
    makeRoom();
    EXPECT_EQ(notice.text(), offline);
}

} // namespace
} // namespace ostrel::test
