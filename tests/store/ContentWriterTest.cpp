#include "ContentWriter.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

/// Larger than the writer's buffer, and no multiple of it; no two parts are the same.
std::string longText()
{
    std::string text;
    for (int i = 0; text.size() < 700'001; ++i)
        text += std::to_string(i) + ',';
    return text;
}

class ContentWriterTest : public testing::Test
{
protected:
    [[nodiscard]] FileDescriptor open(const char *name, int flags) const
    {
        const QByteArray path = QFile::encodeName(m_folder.filePath(QString::fromUtf8(name)));
        return FileDescriptor(::open(path.constData(), flags | O_CLOEXEC, 0600));
    }
    [[nodiscard]] FileSnapshot sourceOf(const std::string &text) const
    {
        const FileDescriptor file = open("source", O_WRONLY | O_CREAT | O_TRUNC);
        ContentWriter writer(file.number());
        writer.append(text);
        EXPECT_TRUE(writer.finish());
        FileDescriptor source = open("source", O_RDONLY);
        struct stat status
        {
        };
        EXPECT_EQ(::fstat(source.number(), &status), 0);
        return {std::move(source), status};
    }
    [[nodiscard]] std::string written() const
    {
        QFile file(m_folder.filePath(u"file"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
    }

    QTemporaryDir m_folder;
    FileDescriptor m_file = open("file", O_RDWR | O_CREAT | O_TRUNC);
    ContentWriter m_writer{m_file.number()};
};

TEST_F(ContentWriterTest, TextsFollowEachOther)
{
    const std::string text = longText();
    for (const char *each : {"", "a", "", "bc", ""})
        m_writer.append(each);
    m_writer.append(text);
    m_writer.append("d");
    EXPECT_EQ(m_writer.size(), text.size() + 4);
    ASSERT_TRUE(m_writer.finish());
    EXPECT_EQ(written(), "abc" + text + "d");
}

TEST_F(ContentWriterTest, PartsOfAFileCanBeCopiedBetweenTexts)
{
    const std::string text = longText();
    const FileSnapshot source = sourceOf(text);
    m_writer.append("[");
    ASSERT_TRUE(m_writer.copy(source, 100, 600'000));
    m_writer.append(",");
    ASSERT_TRUE(m_writer.copy(source, 3, 0));
    ASSERT_TRUE(m_writer.copy(source, 0, 7));
    m_writer.append("]");
    EXPECT_EQ(m_writer.size(), 600'010U);
    ASSERT_TRUE(m_writer.finish());
    EXPECT_EQ(written(), '[' + text.substr(100, 600'000) + ',' + text.substr(0, 7) + ']');
}

TEST_F(ContentWriterTest, CopyingAPartThatTheFileDoesNotHoldFails)
{
    const FileSnapshot source = sourceOf("0123456789");
    EXPECT_TRUE(m_writer.copy(source, 0, 10));
    EXPECT_FALSE(m_writer.copy(source, 0, 11));
    EXPECT_FALSE(m_writer.copy(source, 10, 1));
    EXPECT_FALSE(m_writer.copy(FileSnapshot(), 0, 1));
    EXPECT_TRUE(m_writer.copy(FileSnapshot(), 0, 0));
}

TEST_F(ContentWriterTest, AFailedWriteIsReportedAtTheEnd)
{
    const FileDescriptor readOnly = open("file", O_RDONLY);
    ContentWriter atTheEnd(readOnly.number());
    atTheEnd.append("a");
    EXPECT_FALSE(atTheEnd.finish());

    ContentWriter onTheWay(readOnly.number());
    onTheWay.append(longText());
    EXPECT_EQ(onTheWay.size(), longText().size());
    EXPECT_FALSE(onTheWay.finish());
}

} // namespace
} // namespace ostrel
