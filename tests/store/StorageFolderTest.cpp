#include "StorageFolder.h"

#include "PlainUser.h"
#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

class StorageFolderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        // No user's home is below it, except in the one test that sets it so.
        ASSERT_TRUE(QDir().mkpath(path() + u"/favicons"_s));
        for (const QString &name : ourFiles)
            ASSERT_TRUE(QFile(pathOf(name)).open(QIODevice::WriteOnly));
    }
    [[nodiscard]] QString path() const { return m_root.filePath(u"data"_s); }
    [[nodiscard]] QString pathOf(const QString &name) const
    {
        return path() + QLatin1Char('/') + name;
    }
    static unsigned modeOf(const QString &path)
    {
        struct stat status
        {
        };
        ::stat(QFile::encodeName(path).constData(), &status);
        return status.st_mode & 07777U;
    }
    static void setMode(const QString &path, mode_t mode)
    {
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0);
    }

    const QStringList ourFiles = {
        u"monitors.json"_s,
        u"checks.json"_s,
        u"ostrel.lock"_s,
        u"checks.json.unreadable-20261120T191500Z"_s,
        u"favicons/a.example.png"_s,
        u"favicons/b.example.png"_s,
    };
    QTemporaryDir m_root;
};

TEST_F(StorageFolderTest, FilesThatOthersCouldUseBecomePrivate)
{
    for (const mode_t mode : {0755U, 0777U, 0701U, 0710U}) {
        setMode(path(), mode);
        setMode(pathOf(u"favicons"_s), mode);
        for (const QString &name : ourFiles)
            setMode(pathOf(name), 0644);
        EXPECT_EQ(closeToOthers(path()), QStringList());
        EXPECT_EQ(modeOf(path()), 0700U);
        EXPECT_EQ(modeOf(pathOf(u"favicons"_s)), 0700U);
        for (const QString &name : ourFiles)
            EXPECT_EQ(modeOf(pathOf(name)), 0600U) << name.toStdString();
    }
}

TEST_F(StorageFolderTest, ForeignFilesKeepTheirMode)
{
    ASSERT_TRUE(QFile(pathOf(u"notes"_s)).open(QIODevice::WriteOnly));
    setMode(pathOf(u"notes"_s), 0644);
    setMode(pathOf(u"monitors.json"_s), 0400);
    EXPECT_EQ(closeToOthers(path()), QStringList());
    EXPECT_EQ(modeOf(pathOf(u"notes"_s)), 0644U);
    EXPECT_EQ(modeOf(pathOf(u"monitors.json"_s)), 0400U) << "which others can't use";
}

TEST_F(StorageFolderTest, ASharedFolderKeepsItsModeAndIsReported)
{
    const QStringList complaint = {u"others can use %1: it isn't Ostrel's alone"_s.arg(path())};
    setMode(path(), 01777);
    EXPECT_EQ(closeToOthers(path()), complaint);
    EXPECT_EQ(modeOf(path()), 01777U);

    setMode(path(), 0755);
    const QByteArray home = qgetenv("HOME");
    for (const QString &below : {QString(), u"/favicons"_s}) {
        qputenv("HOME", QFile::encodeName(path() + below));
        EXPECT_EQ(closeToOthers(path()), complaint);
        EXPECT_EQ(modeOf(path()), 0755U);
    }
    qputenv("HOME", QFile::encodeName(path() + u"base"_s));
    EXPECT_EQ(closeToOthers(path()), QStringList()) << "whose name only begins like it";
    qputenv("HOME", home);
}

TEST_F(StorageFolderTest, AFileOrFolderOfAnotherUserIsReported)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the administrator can give files away";
    const QString file = pathOf(u"monitors.json"_s);
    setMode(file, 0644);
    ASSERT_EQ(::chown(QFile::encodeName(file).constData(), test::PlainUser::nobody, 0), 0);
    EXPECT_EQ(closeToOthers(path()),
              QStringList{u"others can use %1: it belongs to somebody else"_s.arg(file)});
    EXPECT_EQ(modeOf(file), 0644U);

    setMode(path(), 0755);
    ASSERT_EQ(::chown(QFile::encodeName(path()).constData(), test::PlainUser::nobody, 0), 0);
    EXPECT_EQ(closeToOthers(path()),
              QStringList{u"others can use %1: it belongs to somebody else"_s.arg(path())});
    EXPECT_EQ(modeOf(path()), 0755U);
}

TEST_F(StorageFolderTest, TheRootFolderIsReportedAsShared)
{
    const test::PlainUser plain; // so that a mistake could do no harm
    EXPECT_EQ(closeToOthers(u"/"_s).size(), 1);
}

TEST_F(StorageFolderTest, AMissingFolderIsNotReported)
{
    EXPECT_EQ(closeToOthers(pathOf(u"missing"_s)), QStringList());
    EXPECT_EQ(closeToOthers(pathOf(u"monitors.json/inside"_s)), QStringList());
}

TEST_F(StorageFolderTest, AMissingFolderIsMadePrivateToItsUser)
{
    const QString deep = pathOf(u"a/b"_s);
    EXPECT_TRUE(prepareToWrite(deep));
    EXPECT_EQ(modeOf(deep), 0700U);
    EXPECT_EQ(modeOf(pathOf(u"a"_s)), 0700U);
    setMode(deep, 0755);
    EXPECT_TRUE(prepareToWrite(deep));
    EXPECT_EQ(modeOf(deep), 0755U) << "as it was found";
}

TEST_F(StorageFolderTest, IfNothingCanBeWrittenTheReasonIsReported)
{
    for (const char *name : {"monitors.json", "monitors.json/inside"}) {
        EXPECT_FALSE(prepareToWrite(pathOf(QString::fromLatin1(name))));
        EXPECT_EQ(errno, ENOTDIR) << name;
    }
    ASSERT_TRUE(QFile::link(u"nowhere"_s, pathOf(u"link"_s)));
    EXPECT_FALSE(prepareToWrite(pathOf(u"link"_s)));
    EXPECT_EQ(errno, ENOENT);

    setMode(m_root.path(), 0755);
    setMode(path(), 0555);
    {
        const test::PlainUser plain;
        for (const QString &each : {path(), pathOf(u"missing"_s)}) {
            EXPECT_FALSE(prepareToWrite(each));
            EXPECT_EQ(errno, EACCES) << each.toStdString();
        }
    }
    setMode(path(), 0700);
}

} // namespace
} // namespace ostrel
