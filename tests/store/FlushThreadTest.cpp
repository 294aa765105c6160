#include "FlushThread.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

using namespace std::chrono_literals;

/// Longer than any test takes.
constexpr auto forEver = 30s;

class FlushThreadTest : public testing::Test
{
protected:
    [[nodiscard]] FileDescriptor open(const char *name) const
    {
        const QByteArray path = QFile::encodeName(m_folder.filePath(QString::fromUtf8(name)));
        return FileDescriptor(::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    }
    [[nodiscard]] AtomicFile fileOf(const char *name) const
    {
        (void)open(name);
        return AtomicFile(m_folder.filePath(QString::fromUtf8(name)));
    }
    /// A disk that hangs until the test ends.
    AtomicFile::Sync hanging()
    {
        return [end = m_end.get_future().share()](const FileDescriptor &) {
            end.wait_for(forEver);
            return true;
        };
    }
    void TearDown() override { m_end.set_value(); }

    QTemporaryDir m_folder;
    std::promise<void> m_end;
};

TEST_F(FlushThreadTest, WaitsForTheDisk)
{
    FlushThread thread;
    EXPECT_TRUE(thread.flushWithin(forEver, open("file")));
}

TEST_F(FlushThreadTest, ReportsTheDisksError)
{
    FlushThread thread([](const FileDescriptor &) {
        errno = ENOSPC;
        return false;
    });
    EXPECT_FALSE(thread.flushWithin(forEver, open("file")));
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_FALSE(thread.flushWithin(forEver, FileDescriptor()));
    EXPECT_EQ(errno, EBADF);
}

TEST_F(FlushThreadTest, DoesNotWaitForADiskThatHangs)
{
    FlushThread thread(hanging());
    EXPECT_TRUE(thread.flushWithin(1ms, open("file"))) << "it goes on";
    thread.flushLater(fileOf("file"));
    thread.finish(1ms);
}

TEST_F(FlushThreadTest, FlushesTheFileEvenAfterItIsClosed)
{
    std::promise<void> closed;
    std::promise<bool> wasOpen;
    FlushThread thread([&](const FileDescriptor &file) {
        closed.get_future().wait_for(forEver);
        struct stat status
        {
        };
        wasOpen.set_value(::fstat(file.number(), &status) == 0);
        return true;
    });
    {
        const FileDescriptor file = open("file");
        EXPECT_TRUE(thread.flushWithin(0ms, file));
    }
    closed.set_value();
    auto outcome = wasOpen.get_future();
    ASSERT_EQ(outcome.wait_for(forEver), std::future_status::ready);
    EXPECT_TRUE(outcome.get());
}

TEST_F(FlushThreadTest, ReportsWhetherACopyHasReachedTheDisk)
{
    const auto isDone = [](const QFuture<bool> &copy) {
        return copy.isResultReadyAt(0) && copy.resultAt(0);
    };
    const QString path = m_folder.filePath(u"copy"_s);
    {
        FlushThread thread;
        const auto copy = thread.copyLater(fileOf("file"), path);
        const auto none = thread.copyLater(AtomicFile(m_folder.filePath(u"missing"_s)), path);
        thread.finish(forEver);
        EXPECT_TRUE(isDone(copy));
        EXPECT_FALSE(isDone(none));
    }
    FlushThread failing([](const FileDescriptor &) { return false; });
    const auto failed = failing.copyLater(fileOf("file"), path);
    failing.finish(forEver);
    EXPECT_FALSE(isDone(failed));
    FlushThread waiting(hanging());
    EXPECT_FALSE(isDone(waiting.copyLater(fileOf("file"), path)));
}

TEST_F(FlushThreadTest, FinishesEverythingThatWasPosted)
{
    std::atomic<int> count = 0;
    FlushThread thread([&](const FileDescriptor &) {
        ++count;
        return true;
    });
    thread.finish(forEver);
    for (const char *name : {"a", "b", "missing"})
        thread.flushLater(name[0] == 'm' ? AtomicFile(m_folder.filePath(u"missing"_s))
                                         : fileOf(name));
    thread.finish(forEver);
    EXPECT_EQ(count, 4) << "two files, and each one's folder";
}

} // namespace
} // namespace ostrel
