#include "StatusWatch.h"

#include "MonitorStore.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;
using Medium = StatusWatch::Medium;

class StatusWatchTest : public testing::Test
{
protected:
    void watch(Medium medium)
    {
        m_watch = std::make_unique<StatusWatch>(
            StatusInvocation{.dataDir = folder.path()}, medium,
            [this](const QByteArray &text) { blocks += text; }, 5ms);
        QObject::connect(m_watch.get(), &StatusWatch::failed, [this] { ++failures; });
        ASSERT_TRUE(m_watch->start());
    }
    void add(const QString &name) const
    {
        MonitorStore(folder.path())
            .addMonitor({.id = QUuid::createUuid(), .name = name, .url = u"a.example"_s});
    }
    void spoil() const
    {
        QFile file(folder.filePath(u"monitors.json"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("broken");
    }

    QTemporaryDir folder;
    QList<QByteArray> blocks;
    int failures = 0;

private:
    std::unique_ptr<StatusWatch> m_watch;
};

} // namespace

TEST_F(StatusWatchTest, AStreamGetsABlockForEachChange)
{
    watch(Medium::stream);
    EXPECT_EQ(blocks, QList<QByteArray>{"No monitors\n"});
    add(u"Shop"_s);
    ASSERT_TRUE(waitFor([&] { return blocks.last().contains("Shop"); }));
    EXPECT_TRUE(blocks.last().startsWith("\nPENDING  Shop"));
    for (const QByteArray &block : blocks)
        EXPECT_FALSE(block.contains('\x1b'));
}

TEST_F(StatusWatchTest, ATerminalIsClearedForEachChange)
{
    watch(Medium::terminal);
    add(u"Shop"_s);
    ASSERT_TRUE(waitFor([&] { return blocks.last().contains("Shop"); }));
    for (const QByteArray &block : blocks)
        EXPECT_TRUE(block.startsWith("\x1b[H\x1b[2J"));
}

TEST_F(StatusWatchTest, WithoutAChangeNothingIsPrinted)
{
    add(u"Shop"_s);
    watch(Medium::stream);
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++turns; });
    timer.start(5ms);
    ASSERT_TRUE(waitFor([&] { return turns == 10; }));
    EXPECT_EQ(blocks.size(), 1);
}

TEST_F(StatusWatchTest, AFileThatCannotBeReadIsToldOnceAndFollowed)
{
    add(u"Shop"_s);
    watch(Medium::stream);
    spoil();
    ASSERT_TRUE(waitFor([&] { return failures > 0; }));
    ASSERT_TRUE(QFile::remove(folder.filePath(u"monitors.json"_s)));
    ASSERT_TRUE(waitFor([&] { return blocks.last() == "\nNo monitors\n"; }));
}

TEST_F(StatusWatchTest, ItDoesNotStartIfTheFileCannotBeRead)
{
    spoil();
    StatusWatch watch({.dataDir = folder.path()}, Medium::stream,
                      [this](const QByteArray &text) { blocks += text; });
    EXPECT_FALSE(watch.start());
    EXPECT_TRUE(blocks.isEmpty());
}

} // namespace ostrel::test
