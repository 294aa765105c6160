#include "AtomicFile.h"

#include "PlainUser.h"
#include "Printers.h"
#include "RemovedNames.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

using Flush = AtomicFile::Flush;

class AtomicFileTest : public testing::Test
{
protected:
    [[nodiscard]] QString pathOf(const char *name) const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }
    [[nodiscard]] QByteArray contentOf(const char *name) const
    {
        QFile file(pathOf(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(none)");
    }
    void fill(const char *name, const QByteArray &content) const
    {
        QFile file(pathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    static AtomicFile::Fill with(std::string_view text)
    {
        return [text](ContentWriter &content) {
            content.append(text);
            return true;
        };
    }
    static bool write(const AtomicFile &file, std::string_view text)
    {
        return file.write(with(text), Flush::none);
    }
    static bool writeKeepingOld(const AtomicFile &file, std::string_view text)
    {
        return file.writeKeepingOld(with(text), Flush::beforeReplacing, "old");
    }
    static std::string textOf(const FileSnapshot &snapshot, std::size_t length)
    {
        std::string text(length, '?');
        return snapshot.read(0, text) ? text : std::string("(none)");
    }

    /// The number of files that this process has open.
    static qsizetype openCount()
    {
        return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
    }

    QTemporaryDir m_folder;
};

/// Lets no two files of this process exchange their names any more, as on a file system that can't
/// do that.
void forbidExchanges()
{
    std::array<sock_filter, 6> program = {{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[4])),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, RENAME_EXCHANGE, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog filter{program.size(), program.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0)
        ::_exit(2);
}

TEST_F(AtomicFileTest, LeavesNothingOpen)
{
    const AtomicFile file(pathOf("file"));
    const qsizetype before = openCount();
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(write(file, "new"));
        ASSERT_TRUE(writeKeepingOld(file, "newer"));
        ASSERT_TRUE(file.read());
    }
    EXPECT_EQ(openCount(), before);
    {
        FileSnapshot snapshot;
        for (int i = 0; i < 3; ++i) {
            ASSERT_TRUE(file.read(&snapshot));
            ASSERT_TRUE(file.write(with("new"), Flush::none, &snapshot));
        }
        EXPECT_EQ(openCount(), before + 1);
    }
    EXPECT_EQ(openCount(), before);
}

TEST_F(AtomicFileTest, HoldsWhatWasWritten)
{
    const AtomicFile file(pathOf("file"));
    EXPECT_TRUE(file.write(with("abc"), Flush::beforeReplacing));
    EXPECT_EQ(file.read(), QByteArrayLiteral("abc"));
    EXPECT_EQ(names(), QStringList{u"file"_s});
}

TEST_F(AtomicFileTest, IncompleteContentReplacesNothing)
{
    fill("file", "old");
    const AtomicFile file(pathOf("file"));
    const auto half = [](ContentWriter &content) {
        content.append("ne");
        return false;
    };
    FileSnapshot snapshot;
    EXPECT_FALSE(file.write(half, Flush::none, &snapshot));
    EXPECT_FALSE(file.writeKeepingOld(half, Flush::none, "old", &snapshot));
    EXPECT_EQ(contentOf("file"), QByteArrayLiteral("old"));
    EXPECT_EQ(names(), QStringList{u"file"_s});
    EXPECT_FALSE(snapshot.isIntact());
}

TEST_F(AtomicFileTest, SnapshotsHoldWhatWasReadAndWritten)
{
    fill("file", "old");
    const AtomicFile file(pathOf("file"));
    FileSnapshot old;
    ASSERT_TRUE(file.read(&old));
    FileSnapshot written;
    ASSERT_TRUE(file.write(with("new"), Flush::none, &written));
    EXPECT_EQ(textOf(old, 3), "old") << "though another file has its name";
    EXPECT_TRUE(written.isIntact());
    EXPECT_EQ(textOf(written, 3), "new");
    ASSERT_TRUE(file.writeKeepingOld(with("newer"), Flush::none, "old", &written));
    EXPECT_TRUE(written.isIntact());
    EXPECT_EQ(textOf(written, 5), "newer");
}

TEST_F(AtomicFileTest, WithoutAFlushTheFileExchangesNamesWithTheOld)
{
    const AtomicFile file(pathOf("file"));
    const test::RemovedNames removed(m_folder.path());
    ASSERT_TRUE(file.write(with("old"), Flush::avoided)) << "there is nothing to exchange with";
    FileSnapshot old = file.snapshot();
    EXPECT_EQ(removed.take(), QStringList());
    FileSnapshot written;
    ASSERT_TRUE(file.write(with("new"), Flush::avoided, &written));
    EXPECT_EQ(removed.take(), QStringList{u"file.tmp"_s});
    EXPECT_EQ(contentOf("file"), QByteArrayLiteral("new"));
    EXPECT_EQ(textOf(old, 3), "old");
    EXPECT_TRUE(file.holds(written));
    EXPECT_TRUE(written.isIntact());
    ASSERT_TRUE(file.writeKeepingOld(with("newer"), Flush::avoided, "kept"));
    EXPECT_EQ(contentOf("file.kept"), QByteArrayLiteral("new"));
    EXPECT_EQ(names(), (QStringList{u"file"_s, u"file.kept"_s}));
}

TEST_F(AtomicFileTest, OnlyAFileWhoseFlushIsAvoidedExchangesNames)
{
    fill("file", "old");
    const AtomicFile file(pathOf("file"));
    const test::RemovedNames removed(m_folder.path());
    EXPECT_TRUE(file.write(with("new"), Flush::none));
    EXPECT_TRUE(file.write(with("newer"), Flush::beforeReplacing));
    EXPECT_EQ(removed.take(), QStringList());
}

TEST_F(AtomicFileTest, WhereNamesCannotBeExchangedTheFileIsReplacedAllTheSame)
{
    fill("file", "old");
    const auto write = [this] {
        forbidExchanges();
        const test::RemovedNames removed(m_folder.path());
        const bool isWritten = AtomicFile(pathOf("file")).write(with("new"), Flush::avoided);
        ::_exit(isWritten && removed.take().isEmpty() ? 0 : 1);
    };
    EXPECT_EXIT(write(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(contentOf("file"), QByteArrayLiteral("new"));
    EXPECT_EQ(names(), QStringList{u"file"_s});
}

TEST_F(AtomicFileTest, OnlyAnOrdinaryFileIsExchanged)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"folder"_s));
    EXPECT_FALSE(AtomicFile(pathOf("folder")).write(with("new"), Flush::avoided));
    EXPECT_EQ(errno, EISDIR);
    EXPECT_EQ(names(), QStringList{u"folder"_s});
    EXPECT_TRUE(QFileInfo(pathOf("folder")).isDir());
}

TEST_F(AtomicFileTest, WritesEmptyContentAsAnEmptyFile)
{
    const AtomicFile file(pathOf("file"));
    EXPECT_TRUE(write(file, ""));
    EXPECT_EQ(file.read(), QByteArray(""));
}

TEST_F(AtomicFileTest, IsPrivateToItsUser)
{
    fill("file", "old");
    fill("file.tmp", "left");
    ASSERT_EQ(::chmod(QFile::encodeName(pathOf("file")).constData(), 0644), 0);
    ASSERT_TRUE(write(AtomicFile(pathOf("file")), "new"));
    struct stat status
    {
    };
    ASSERT_EQ(::stat(QFile::encodeName(pathOf("file")).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

TEST_F(AtomicFileTest, UsualAccessIsWhatTheUmaskAllows)
{
    const mode_t before = ::umask(027);
    const AtomicFile file(pathOf("file"), AtomicFile::waitForTheDisk, AtomicFile::Access::usual);
    const bool isWritten = write(file, "new");
    ::umask(before);
    struct stat status = {};
    ASSERT_TRUE(isWritten);
    ASSERT_EQ(::stat(QFile::encodeName(pathOf("file")).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(AtomicFileTest, AUsualFileLeavesAnotherOfTheTemporaryName)
{
    fill("file.tmp", "another");
    const AtomicFile file(pathOf("file"), AtomicFile::waitForTheDisk, AtomicFile::Access::usual);
    EXPECT_TRUE(write(file, "new"));
    EXPECT_EQ(contentOf("file.tmp"), QByteArrayLiteral("another"));
    EXPECT_EQ(names(), (QStringList{u"file"_s, u"file.tmp"_s}));
}

TEST_F(AtomicFileTest, ANewFileNeverReplacesAnother)
{
    const AtomicFile file(pathOf("file"));
    EXPECT_TRUE(file.writeNew(with("first"), Flush::none));
    errno = 0;
    EXPECT_FALSE(file.writeNew(with("second"), Flush::none));
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(contentOf("file"), QByteArrayLiteral("first"));
    EXPECT_EQ(names(), QStringList{u"file"_s});
}

TEST_F(AtomicFileTest, LinkIsFollowedAndStays)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"elsewhere"_s));
    fill("elsewhere/real", "old");
    ASSERT_TRUE(QFile::link(u"elsewhere/real"_s, pathOf("link")));
    ASSERT_TRUE(QFile::link(pathOf("link"), pathOf("file")));
    EXPECT_TRUE(write(AtomicFile(pathOf("file")), "new"));
    EXPECT_TRUE(QFileInfo(pathOf("file")).isSymLink());
    EXPECT_TRUE(QFileInfo(pathOf("link")).isSymLink());
    EXPECT_EQ(contentOf("elsewhere/real"), QByteArrayLiteral("new"));
}

TEST_F(AtomicFileTest, TargetOfADanglingLinkIsCreated)
{
    ASSERT_TRUE(QFile::link(u"real"_s, pathOf("file")));
    EXPECT_TRUE(write(AtomicFile(pathOf("file")), "new"));
    EXPECT_EQ(contentOf("real"), QByteArrayLiteral("new"));
}

TEST_F(AtomicFileTest, LinkAtTheTemporaryNameIsNotFollowed)
{
    fill("other", "untouched");
    ASSERT_TRUE(QFile::link(pathOf("other"), pathOf("file.tmp")));
    EXPECT_TRUE(write(AtomicFile(pathOf("file")), "new"));
    EXPECT_EQ(contentOf("other"), QByteArrayLiteral("untouched"));
    EXPECT_EQ(contentOf("file"), QByteArrayLiteral("new"));
    EXPECT_TRUE(QFileInfo(pathOf("file.tmp")).isSymLink()) << "nor is it removed";
}

TEST_F(AtomicFileTest, NothingWithTheTemporaryNameStopsAWrite)
{
    const auto makeFolder = [](const char *path) { return ::mkdir(path, 0700); };
    const auto makePipe = [](const char *path) { return ::mkfifo(path, 0600); };
    const auto makeLink = [](const char *path) { return ::symlink("nowhere", path); };
    const auto makeForeign = [](const char *path) {
        return ::mknod(path, S_IFREG | 0600, 0) == 0 ? ::chown(path, test::PlainUser::nobody, 0)
                                                     : -1;
    };
    const AtomicFile file(pathOf("file"));
    int number = 0;
    for (const std::function<int(const char *)> &make :
         {std::function<int(const char *)>(makeFolder), {makePipe}, {makeLink}, {makeForeign}}) {
        if (number == 3 && ::geteuid() != 0)
            continue; // Only root can give files away.
        ++number;
        const std::string name = number == 1 ? "file.tmp" : "file.tmp-" + std::to_string(number);
        ASSERT_EQ(make(QFile::encodeName(pathOf(name.c_str())).constData()), 0) << name;
        const QStringList before = names();
        const std::string text = std::to_string(number);
        ASSERT_TRUE(write(file, text)) << name;
        ASSERT_TRUE(writeKeepingOld(file, text)) << name;
        file.removeLeftovers();
        EXPECT_EQ(contentOf("file").toStdString(), text) << name;
        ASSERT_TRUE(QFile::remove(pathOf("file.old")));
        EXPECT_EQ(names().size(), std::max<qsizetype>(before.size(), number + 1)) << name;
        for (const QString &kept : before)
            EXPECT_TRUE(names().contains(kept)) << kept.toStdString();
    }
}

TEST_F(AtomicFileTest, WithoutAFreeTemporaryNameNothingIsChanged)
{
    fill("file", "old");
    const QDir folder(m_folder.path());
    ASSERT_TRUE(folder.mkdir(u"file.tmp"_s));
    for (int number = 2; number <= 15; ++number)
        ASSERT_TRUE(folder.mkdir(u"file.tmp-%1"_s.arg(number)));
    const AtomicFile file(pathOf("file"));
    EXPECT_TRUE(write(file, "new"));
    ASSERT_TRUE(folder.mkdir(u"file.tmp-16"_s));
    EXPECT_FALSE(write(file, "newer"));
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(contentOf("file"), QByteArrayLiteral("new"));
    EXPECT_EQ(names().size(), 17);
}

TEST_F(AtomicFileTest, LeftoversAreRemovedUnderEveryTemporaryName)
{
    for (const char *name : {"file", "file.tmp", "file.tmp-2", "file.tmp-16", "file.tmp-17",
                             "file.tmp-x", "other.tmp"})
        fill(name, "half");
    AtomicFile(pathOf("file")).removeLeftovers();
    EXPECT_EQ(names().join(u' '), u"file file.tmp-17 file.tmp-x other.tmp"_s);
}

TEST_F(AtomicFileTest, FailureSetsErrno)
{
    fill("ordinary", "x");
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"folder"_s));
    const std::pair<const char *, int> cases[] = {
        {"missing/file", ENOENT}, {"ordinary/file", ENOTDIR}, {"folder", EISDIR}};
    for (const auto &[name, reason] : cases) {
        EXPECT_FALSE(write(AtomicFile(pathOf(name)), "new"));
        EXPECT_EQ(errno, reason) << name;
    }
}

TEST_F(AtomicFileTest, ContentThatCannotBeFlushedReplacesNothing)
{
    fill("file", "old");
    const AtomicFile file(pathOf("file"), [](const FileDescriptor &) {
        errno = EIO;
        return false;
    });
    EXPECT_FALSE(file.write(with("new"), Flush::beforeReplacing));
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(contentOf("file"), QByteArrayLiteral("old"));
    EXPECT_EQ(names(), QStringList{u"file"_s});
    EXPECT_TRUE(file.write(with("new"), Flush::none)) << "for which nobody waits";
}

TEST_F(AtomicFileTest, FlushCoversTheContentAndTheFolderEntry)
{
    fill("file", "x");
    std::vector<QByteArray> flushed;
    const auto sync = [&](const FileDescriptor &file) {
        const QString link = u"/proc/self/fd/%1"_s.arg(file.number());
        flushed.push_back(QFile::symLinkTarget(link).toUtf8());
        return true;
    };
    EXPECT_TRUE(AtomicFile(pathOf("file")).flush(sync));
    EXPECT_EQ(flushed, (std::vector{pathOf("file").toUtf8(), m_folder.path().toUtf8()}));
    EXPECT_FALSE(AtomicFile(pathOf("missing")).flush(sync));
    EXPECT_TRUE(AtomicFile(pathOf("file")).flush(AtomicFile::waitForTheDisk));
}

TEST_F(AtomicFileTest, ExistsUnlessItIsKnownNotTo)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"closed"_s));
    fill("closed/file", "x");
    EXPECT_FALSE(AtomicFile(pathOf("closed/missing")).exists());
    EXPECT_TRUE(AtomicFile(pathOf("closed/file/inside")).exists());
    ASSERT_EQ(::chmod(QFile::encodeName(pathOf("closed")).constData(), 0), 0);
    {
        const test::PlainUser plain;
        EXPECT_TRUE(AtomicFile(pathOf("closed/file")).exists());
    }
    ASSERT_EQ(::chmod(QFile::encodeName(pathOf("closed")).constData(), 0700), 0);
}

TEST_F(AtomicFileTest, FailureChangesNothing)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"file"_s));
    fill("file/inside", "x");
    EXPECT_FALSE(write(AtomicFile(pathOf("file")), "new"));
    EXPECT_FALSE(write(AtomicFile(pathOf("no/such/folder")), "new"));
    EXPECT_EQ(names(), QStringList{u"file"_s});
    EXPECT_EQ(contentOf("file/inside"), QByteArrayLiteral("x"));
}

TEST_F(AtomicFileTest, FullDiskLeavesTheOldContent)
{
    fill("file", "old");
    // A limit on file size stands in for a full disk: both stop a write in its middle.
    const rlimit previous = [] {
        rlimit limit{};
        ::getrlimit(RLIMIT_FSIZE, &limit);
        return limit;
    }();
    const auto previousHandler = ::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1000, previous.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string large(100000, 'x');
    const bool written = write(AtomicFile(pathOf("file")), large);
    const bool writtenKeeping = writeKeepingOld(AtomicFile(pathOf("file")), large);
    const int reason = errno;
    ::setrlimit(RLIMIT_FSIZE, &previous);
    ::signal(SIGXFSZ, previousHandler);
    EXPECT_FALSE(written);
    EXPECT_FALSE(writtenKeeping);
    EXPECT_EQ(reason, EFBIG);
    EXPECT_EQ(contentOf("file"), QByteArrayLiteral("old"));
    EXPECT_EQ(names(), QStringList{u"file"_s});
}

TEST_F(AtomicFileTest, KeepsOldContentUnderAFreeName)
{
    fill("file", "1");
    const AtomicFile file(pathOf("file"));
    EXPECT_TRUE(writeKeepingOld(file, "2"));
    EXPECT_TRUE(writeKeepingOld(file, "3"));
    EXPECT_TRUE(writeKeepingOld(file, "4"));
    EXPECT_EQ(contentOf("file.old"), QByteArrayLiteral("1"));
    EXPECT_EQ(contentOf("file.old-2"), QByteArrayLiteral("2"));
    EXPECT_EQ(contentOf("file.old-3"), QByteArrayLiteral("3"));
    EXPECT_EQ(contentOf("file"), QByteArrayLiteral("4"));
    EXPECT_EQ(names().size(), 4);
}

TEST_F(AtomicFileTest, KeepsNoOldContentIfThereIsNone)
{
    EXPECT_TRUE(writeKeepingOld(AtomicFile(pathOf("file")), "new"));
    EXPECT_EQ(names(), QStringList{u"file"_s});
}

TEST_F(AtomicFileTest, ReadsNoFolderPipeOrMissingFile)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"folder"_s));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pathOf("pipe")).constData(), 0600), 0);
    for (const char *name : {"folder", "pipe", "missing"})
        EXPECT_FALSE(AtomicFile(pathOf(name)).read()) << name;
    EXPECT_TRUE(AtomicFile(pathOf("pipe")).exists());
    EXPECT_FALSE(AtomicFile(pathOf("missing")).exists());
}

} // namespace
} // namespace ostrel
