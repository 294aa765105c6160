#include "FileSnapshot.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

class FileSnapshotTest : public testing::Test
{
protected:
    FileSnapshotTest() { write("0123456789"); }

    void write(const char *text) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    [[nodiscard]] QString path() const { return m_folder.filePath(u"file"_s); }
    [[nodiscard]] FileDescriptor open() const
    {
        return FileDescriptor(::open(QFile::encodeName(path()).constData(), O_RDONLY | O_CLOEXEC));
    }
    static struct stat statusOf(const FileDescriptor &file)
    {
        struct stat status
        {
        };
        EXPECT_EQ(::fstat(file.number(), &status), 0);
        return status;
    }
    [[nodiscard]] FileSnapshot take() const
    {
        FileDescriptor file = open();
        const struct stat status = statusOf(file);
        // Long enough that a later change of the file gets a different time.
        QThread::msleep(20);
        return {std::move(file), status};
    }
    static std::string read(const FileSnapshot &snapshot, quint64 offset, std::size_t length)
    {
        std::string text(length, '?');
        return snapshot.read(offset, text) ? text : std::string("(none)");
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(FileSnapshotTest, ReadsFromAnywhere)
{
    const FileSnapshot snapshot = take();
    EXPECT_TRUE(snapshot.isIntact());
    EXPECT_EQ(read(snapshot, 3, 4), "3456");
    EXPECT_EQ(read(snapshot, 0, 10), "0123456789");
    EXPECT_EQ(read(snapshot, 10, 0), "");
    EXPECT_EQ(read(snapshot, 9, 2), "(none)") << "past its end";
}

TEST_F(FileSnapshotTest, AnEmptySnapshotHoldsNothing)
{
    EXPECT_FALSE(FileSnapshot().isIntact());
    EXPECT_EQ(read(FileSnapshot(), 0, 1), "(none)");
}

TEST_F(FileSnapshotTest, IsReadableAfterItsFileIsRemoved)
{
    const FileSnapshot snapshot = take();
    ASSERT_TRUE(QFile::remove(path()));
    write("another");
    EXPECT_EQ(read(snapshot, 0, 10), "0123456789");
}

TEST_F(FileSnapshotTest, IsSpoiledByAWriteIntoTheFile)
{
    for (const char *text : {"", "0123", "9876543210", "0123456789", "01234567890"}) {
        const FileSnapshot snapshot = take();
        ASSERT_TRUE(snapshot.isIntact());
        write(text);
        EXPECT_FALSE(snapshot.isIntact()) << text;
    }
}

TEST_F(FileSnapshotTest, IsSpoiledByAnotherSizeWithinATickOfTheClock)
{
    FileDescriptor file = open();
    struct stat status = statusOf(file);
    --status.st_size;
    EXPECT_FALSE(FileSnapshot(std::move(file), status).isIntact());
}

} // namespace
} // namespace ostrel
