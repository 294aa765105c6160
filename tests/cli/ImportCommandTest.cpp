#include "ImportCommand.h"

#include "AtomicFile.h"
#include "CommandLine.h"
#include "ExportCommand.h"
#include "FolderOwnership.h"
#include "MonitorCommands.h"
#include "MonitorRequests.h"
#include "MonitorStore.h"
#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class OurFolder : public FolderOwnership
{
public:
    [[nodiscard]] bool renew() override { return true; }
};

/// A channel to @p program, or, if that is null, to none.
class DirectChannel : public RequestChannel
{
public:
    [[nodiscard]] Answer ask(const QByteArray &request,
                             std::chrono::milliseconds /*patience*/) override
    {
        ++requestCount;
        if (!program)
            return {.result = Result::ours};
        Answer answer{.result = Result::answered};
        program->answer(request, [&](const QByteArray &line) { answer.line = line; });
        return answer;
    }
    void release() override {}

    MonitorRequests *program = nullptr;
    int requestCount = 0;
};

class ImportCommandTest : public testing::Test
{
protected:
    [[nodiscard]] QString pathOf(const char *name) const
    {
        return folder.filePath(QString::fromUtf8(name));
    }
    void fill(const QByteArray &content) const
    {
        QFile file(invocation.path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    [[nodiscard]] CommandResult run()
    {
        RequestRunner runner(dataDir, channel, ownership);
        return runImport(invocation, runner);
    }
    [[nodiscard]] CommandResult run(const QByteArray &content)
    {
        fill(content);
        return run();
    }
    [[nodiscard]] QList<Monitor> stored() const { return StoredRecords::read(dataDir).monitors; }
    [[nodiscard]] QStringList storedNames() const
    {
        QStringList names;
        for (const Monitor &monitor : stored())
            names += monitor.name;
        return names;
    }
    /// Stores a monitor with a check, and exports both into the file.
    Monitor exportOne()
    {
        const Monitor monitor{.id = QUuid::createUuid(),
                              .name = u"Shop"_s,
                              .url = u"https://shop.example/"_s,
                              .createdAt = std::chrono::sys_days(std::chrono::year(2026) / 1 / 1)};
        {
            MonitorStore store(dataDir);
            store.addMonitor(monitor);
            store.addCheck({.id = QUuid::createUuid(),
                            .monitorId = monitor.id,
                            .timestamp = monitor.createdAt,
                            .isUp = true,
                            .responseTime = 12});
        }
        const ExportOutcome outcome = runExport(
            {.dataDir = dataDir, .path = invocation.path, .hasHistory = true, .replaces = true},
            -1);
        EXPECT_EQ(outcome.exitCode, exitDone);
        return monitor;
    }
    void expectUnchanged(const CommandResult &result, int exitCode, const QString &complaint) const
    {
        EXPECT_EQ(result.exitCode, exitCode);
        EXPECT_TRUE(result.complaint.contains(complaint)) << qPrintable(result.complaint);
        EXPECT_FALSE(result.complaint.contains(u'\n'));
        EXPECT_FALSE(QFile::exists(dataDir));
    }

    QTemporaryDir folder;
    const QString dataDir = folder.filePath(u"data"_s);
    OurFolder ownership;
    DirectChannel channel;
    ImportInvocation invocation{.dataDir = dataDir, .path = folder.filePath(u"file"_s)};
};

} // namespace

TEST(ImportArgumentsTest, TakesAFileAndItsOptions)
{
    const auto plain =
        std::get<ImportInvocation>(parseCommandLine({u"ostrel"_s, u"import"_s, u"file"_s}));
    EXPECT_EQ(plain.dataDir, MonitorStore::defaultStorageDir());
    EXPECT_EQ(plain.path, u"file"_s);
    EXPECT_EQ(plain.policy, ImportPolicy::refuse);
    EXPECT_FALSE(plain.isDryRun);
    const auto copy = std::get<ImportInvocation>(
        parseCommandLine({u"ostrel"_s, u"import"_s, u"-"_s, u"--copy"_s, u"--dry-run"_s,
                          u"--data-dir"_s, u"/tmp/there"_s}));
    EXPECT_TRUE(copy.path.isEmpty());
    EXPECT_EQ(copy.dataDir, u"/tmp/there"_s);
    EXPECT_EQ(copy.policy, ImportPolicy::copy);
    EXPECT_TRUE(copy.isDryRun);
    const auto replace = std::get<ImportInvocation>(
        parseCommandLine({u"ostrel"_s, u"import"_s, u"file"_s, u"--replace"_s}));
    EXPECT_EQ(replace.policy, ImportPolicy::replace);
}

TEST(ImportArgumentsTest, WhatIsUnusableIsNamed)
{
    const struct
    {
        QStringList arguments;
        QString reason;
    } cases[] = {
        {{}, u"A file is missing."_s},
        {{u""_s}, u"A file is missing."_s},
        {{u"a"_s, u"b"_s}, u"Unexpected argument 'b'."_s},
        {{u"a"_s, u"--replace"_s, u"--copy"_s}, u"--replace doesn't go with --copy."_s},
        {{u"a"_s, u"--data-dir"_s, u""_s}, u"'' is no usable value for --data-dir."_s},
    };
    for (const auto &each : cases) {
        const Invocation invocation =
            parseCommandLine(QStringList{u"ostrel"_s, u"import"_s} + each.arguments);
        const auto *unusable = std::get_if<UnusableInvocation>(&invocation);
        ASSERT_TRUE(unusable) << qPrintable(each.reason);
        EXPECT_EQ(unusable->reason, each.reason);
    }
}

TEST_F(ImportCommandTest, WithoutAProgramTheFilesGetTheMonitors)
{
    const CommandResult result = run("a.example\tA\ndb.example:22\n");
    EXPECT_EQ(result.exitCode, exitDone);
    EXPECT_EQ(result.output, QByteArray("add      A  https://a.example\n"
                                        "add      db.example:22  db.example:22\n"));
    EXPECT_EQ(storedNames(), (QStringList{u"A"_s, u"db.example:22"_s}));
    struct stat status = {};
    ASSERT_EQ(::stat(QFile::encodeName(dataDir).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(ImportCommandTest, TheProgramThatWatchesGetsTheMonitors)
{
    MonitorStore store(dataDir);
    MonitorCommands commands(store);
    MonitorRequests program(store, commands);
    channel.program = &program;
    EXPECT_EQ(run("a.example\tA\n").exitCode, exitDone);
    ASSERT_EQ(store.monitors().size(), 1);
    EXPECT_EQ(store.monitors()[0].name, u"A"_s);
    EXPECT_EQ(run("a.example\tB\n").output,
              QByteArray("skip     B  https://a.example  (is there already)\n"));
    EXPECT_EQ(store.monitors().size(), 1);
}

TEST_F(ImportCommandTest, WhatWasExportedComesBackWithItsHistory)
{
    const Monitor monitor = exportOne();
    ASSERT_TRUE(QDir(dataDir).removeRecursively());
    EXPECT_EQ(run().exitCode, exitDone);
    EXPECT_EQ(stored(), QList{monitor});
    const StoredRecords records = StoredRecords::read(dataDir);
    ASSERT_TRUE(records.checks.contains(monitor.id));
    EXPECT_EQ(records.checks.at(monitor.id).checks().size(), 1U);

    EXPECT_TRUE(run().output.startsWith("skip     Shop"));
    EXPECT_EQ(stored().size(), 1);
}

TEST_F(ImportCommandTest, WithoutAFileStandardInputIsRead)
{
    fill("a.example\nb.example\n");
    ASSERT_TRUE(std::freopen(QFile::encodeName(invocation.path).constData(), "r", stdin));
    invocation.path.clear();
    EXPECT_EQ(run().exitCode, exitDone);
    EXPECT_EQ(stored().size(), 2);
}

TEST_F(ImportCommandTest, NothingIsOverwrittenUnasked)
{
    Monitor monitor = exportOne();
    monitor.name = u"Mine"_s;
    MonitorStore(dataDir).updateMonitor(monitor);
    const CommandResult refused = run();
    EXPECT_EQ(refused.exitCode, exitFailed);
    EXPECT_TRUE(refused.output.startsWith("refuse   Shop"));
    EXPECT_TRUE(refused.complaint.contains(u"nothing is imported"_s));
    EXPECT_EQ(storedNames(), QStringList{u"Mine"_s});

    invocation.policy = ImportPolicy::copy;
    EXPECT_EQ(run().exitCode, exitDone);
    EXPECT_EQ(storedNames(), (QStringList{u"Mine"_s, u"Shop"_s}));

    invocation.policy = ImportPolicy::replace;
    EXPECT_EQ(run().exitCode, exitDone);
    EXPECT_EQ(storedNames(), (QStringList{u"Shop"_s, u"Shop"_s}));
    EXPECT_EQ(StoredRecords::read(dataDir).checks.at(monitor.id).checks().size(), 1U);
}

TEST_F(ImportCommandTest, ADryRunOnlyReads)
{
    invocation.isDryRun = true;
    const CommandResult result = run("a.example\n");
    EXPECT_EQ(result.exitCode, exitDone);
    EXPECT_TRUE(result.output.startsWith("add      a.example"));
    EXPECT_FALSE(QFile::exists(dataDir));
    EXPECT_EQ(channel.requestCount, 0);
}

TEST_F(ImportCommandTest, AFileThatOffersNothingNewChangesNothing)
{
    expectUnchanged(run("# nothing\n"), exitDone, QString());
}

TEST_F(ImportCommandTest, ABrokenFileChangesNothing)
{
    expectUnchanged(run("a.example\nnonsense\n"), exitUnusable, u"file: line 2: 'nonsense'"_s);
    expectUnchanged(run("x\na.example\ny\n"), exitUnusable, u"(and 1 more)"_s);
    expectUnchanged(run("{"), exitUnusable, u"not JSON"_s);
    expectUnchanged(run("\xFF"), exitUnusable, u"UTF-8"_s);
}

TEST_F(ImportCommandTest, AFileThatCannotBeReadChangesNothing)
{
    invocation.path = pathOf("missing");
    expectUnchanged(run(), exitUnusable, u"can't read "_s + invocation.path);
    invocation.path = folder.path();
    expectUnchanged(run(), exitUnusable, u"can't read "_s);
    invocation.path = pathOf("large");
    QFile large(invocation.path);
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(maxImportSize + 1));
    expectUnchanged(run(), exitUnusable, u"larger than 64 MiB"_s);
}

TEST_F(ImportCommandTest, WhatHasNoCounterpartIsTold)
{
    const CommandResult result =
        run(R"([{"targets":["a.example"],"labels":{"name":"A","team":"x"}}])");
    EXPECT_EQ(result.exitCode, exitDone);
    EXPECT_EQ(result.notes, QStringList{u"group 1: no counterpart for the labels team"_s});
    EXPECT_EQ(storedNames(), QStringList{u"A"_s});
}

TEST_F(ImportCommandTest, MonitorsThatCannotBeReadAreNotAddedTo)
{
    exportOne();
    ASSERT_TRUE(QFile::resize(StoredRecords::monitorsPath(dataDir), 3));
    for (const bool isDryRun : {false, true}) {
        invocation.isDryRun = isDryRun;
        const CommandResult result = run("a.example\n");
        EXPECT_EQ(result.exitCode, exitFailed);
        EXPECT_TRUE(result.complaint.contains(u"monitors.json"_s));
    }
}

} // namespace ostrel::test
