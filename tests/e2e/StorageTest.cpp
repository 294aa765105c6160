#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelProgram.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/mount.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

// What the program does if its data folder fails it.

namespace ostrel::test {

namespace {

class StorageTest : public testing::Test
{
protected:
    StorageTest()
    {
        program.keepErrors();
        monitor.interval = Seconds(0.1);
    }

    [[nodiscard]] std::size_t checkCount() const
    {
        return program.readChecks()
            .value_or(QHash<QUuid, std::vector<Check>>())
            .value(monitor.id)
            .size();
    }
    [[nodiscard]] bool recordsGoOn() const
    {
        const std::size_t before = checkCount();
        return waitFor([&] { return checkCount() > before; });
    }
    [[nodiscard]] QString dataFile(const char *name) const
    {
        return program.dataDir() + QLatin1Char('/') + QString::fromUtf8(name);
    }
    static unsigned modeOf(const QString &path)
    {
        struct stat status
        {
        };
        ::stat(QFile::encodeName(path).constData(), &status);
        return status.st_mode & 07777U;
    }
    [[nodiscard]] static bool setMode(const QString &path, mode_t mode)
    {
        return ::chmod(QFile::encodeName(path).constData(), mode) == 0;
    }

    HostileServer server{answerWith("OK")};
    Monitor monitor = webMonitor(u"Shop"_s, server.url());
    OstrelProgram program;
};

} // namespace

TEST_F(StorageTest, ADeletedFolderComesBackWithBothFiles)
{
    program.writeMonitors({monitor});
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return checkCount() > 2; }));
    const std::size_t before = checkCount();

    ASSERT_TRUE(QDir(program.dataDir()).removeRecursively());
    EXPECT_TRUE(waitFor([&] { return checkCount() > before; }));
    EXPECT_EQ(program.readMonitors(), QList<Monitor>{monitor});
    EXPECT_EQ(modeOf(program.dataDir()), 0700U);
    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(program.complaints(), QByteArray());
}

TEST_F(StorageTest, AFullDiskIsReportedAndTheRestIsSavedOnceThereIsRoom)
{
    const QByteArray folder = QFile::encodeName(program.dataDir());
    if (::mount("tmpfs", folder.constData(), "tmpfs", 0, "size=512k,mode=0700") != 0)
        GTEST_SKIP() << "nothing may be mounted here";
    program.writeMonitors({monitor});
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return checkCount() > 0; }));
    {
        QFile rest(dataFile("rest"));
        ASSERT_TRUE(rest.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (rest.write(QByteArray(4096, 'x')) == 4096) {
        }
    }
    const QByteArray line = "ostrel: can't save to " + folder + ": No space left on device\n";
    EXPECT_TRUE(waitFor([&] { return !program.complaints().isEmpty(); }));
    EXPECT_EQ(program.complaints(), line);
    const auto requests = server.requests().size();
    EXPECT_TRUE(waitFor([&] { return server.requests().size() > requests + 1; }));
    EXPECT_GT(checkCount(), 0U) << "of before";

    ASSERT_TRUE(QFile::remove(dataFile("rest")));
    EXPECT_TRUE(recordsGoOn());
    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(program.complaints(), line) << "once";
    EXPECT_EQ(program.readMonitors(), QList<Monitor>{monitor});
    EXPECT_EQ(::umount2(folder.constData(), MNT_DETACH), 0);
}

TEST_F(StorageTest, StatusOfMonitorsThatCannotBeReadFails)
{
    QFile file(dataFile("monitors.json"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[{");
    file.close();
    const auto outcome = program.run({u"status"_s});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, QByteArray());
    EXPECT_EQ(outcome.errors, "ostrel: can't read " + file.fileName().toUtf8() + '\n');

    ASSERT_TRUE(file.remove());
    const auto none = program.run({u"status"_s});
    EXPECT_EQ(none.exitCode, 0);
    EXPECT_EQ(none.output, QByteArray("No monitors\n"));
}

TEST_F(StorageTest, FilesMadeByHandBecomePrivateOnceItRuns)
{
    program.writeMonitors({monitor});
    program.setArguments({u"--data-dir"_s, program.dataDir()});
    for (const char *folder : {"", "favicons"})
        ASSERT_TRUE(setMode(dataFile(folder), 0755));
    for (const char *file : {"monitors.json", "favicons/127.0.0.1.png"})
        ASSERT_TRUE(setMode(dataFile(file), 0644));
    ASSERT_TRUE(program.start());
    for (const char *folder : {"", "favicons"})
        EXPECT_EQ(modeOf(dataFile(folder)), 0700U) << folder;
    ASSERT_TRUE(waitFor([this] { return checkCount() > 0; }));
    for (const char *file : {"monitors.json", "checks.json", "favicons/127.0.0.1.png"})
        EXPECT_EQ(modeOf(dataFile(file)), 0600U) << file;
    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(program.complaints(), QByteArray());
}

TEST_F(StorageTest, TheReasonWhyAFolderStaysOpenToOthersIsPrinted)
{
    ASSERT_TRUE(setMode(program.dataDir(), 01777));
    ASSERT_TRUE(program.start());
    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(program.complaints(), "ostrel: others can use " + program.dataDir().toUtf8() +
                                        ": it isn't Ostrel's alone\n");
    EXPECT_EQ(modeOf(program.dataDir()), 01777U);
}

} // namespace ostrel::test
