#include "ExportCommand.h"

#include "CommandLine.h"
#include "MetricsCommand.h"
#include "MonitorStore.h"
#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

Invocation parse(const QString &line)
{
    return parseCommandLine(QStringList{u"ostrel"_s} +
                            line.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

/// Why @p line is unusable; empty, and a failure, if it isn't.
QString complaintAbout(const QString &line)
{
    const Invocation invocation = parse(line);
    const auto *unusable = std::get_if<UnusableInvocation>(&invocation);
    EXPECT_TRUE(unusable) << qPrintable(line);
    return unusable ? unusable->reason : QString();
}

class ExportCommandTest : public testing::Test
{
protected:
    ExportCommandTest()
    {
        MonitorStore store(dataDir);
        const Monitor monitor{.id = QUuid::createUuid(), .url = u"https://a.example/"_s};
        store.addMonitor(monitor);
        store.addCheck({.id = QUuid::createUuid(),
                        .monitorId = monitor.id,
                        .timestamp = systemNow(),
                        .isUp = true,
                        .responseTime = 12});
    }

    [[nodiscard]] QString pathOf(const char *name) const
    {
        return folder.filePath(QString::fromUtf8(name));
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
    [[nodiscard]] ExportInvocation into(const char *name) const
    {
        return {.dataDir = dataDir, .path = pathOf(name)};
    }
    static ExportOutcome run(const ExportInvocation &invocation)
    {
        return runExport(invocation, -1);
    }
    static void expectFailure(const ExportOutcome &outcome, const QString &complaint)
    {
        EXPECT_EQ(outcome.exitCode, exitFailed);
        ASSERT_EQ(outcome.complaints.size(), 1);
        EXPECT_TRUE(outcome.complaints[0].contains(complaint)) << qPrintable(outcome.complaints[0]);
    }

    QTemporaryDir folder;
    const QString dataDir = folder.filePath(u"data"_s);
};

} // namespace

TEST(ExportArgumentsTest, TakesAFileAndItsOptions)
{
    const auto plain = std::get<ExportInvocation>(parse(u"export"_s));
    EXPECT_EQ(plain.dataDir, MonitorStore::defaultStorageDir());
    EXPECT_TRUE(plain.path.isEmpty());
    EXPECT_EQ(plain.format, ExportFormat::json);
    EXPECT_FALSE(plain.hasHistory);
    EXPECT_FALSE(plain.replaces);

    const auto full = std::get<ExportInvocation>(
        parse(u"export there.csv --history --format csv --force --data-dir /tmp/there"_s));
    EXPECT_EQ(full.dataDir, u"/tmp/there"_s);
    EXPECT_EQ(full.path, u"there.csv"_s);
    EXPECT_EQ(full.format, ExportFormat::csv);
    EXPECT_TRUE(full.hasHistory);
    EXPECT_TRUE(full.replaces);

    EXPECT_TRUE(std::get<ExportInvocation>(parse(u"export -"_s)).path.isEmpty());
    EXPECT_EQ(std::get<ExportInvocation>(parse(u"export there --format prometheus"_s)).format,
              ExportFormat::prometheus);
}

TEST(ExportArgumentsTest, WhatIsUnusableIsNamed)
{
    EXPECT_EQ(complaintAbout(u"export a b"_s), u"Unexpected argument 'b'."_s);
    EXPECT_EQ(complaintAbout(u"export --format xml"_s),
              u"'xml' is no usable value for --format."_s);
    EXPECT_EQ(complaintAbout(u"export --format prometheus"_s),
              u"--format prometheus needs a directory."_s);
    EXPECT_EQ(complaintAbout(u"export - --format prometheus"_s),
              u"--format prometheus needs a directory."_s);
    EXPECT_EQ(complaintAbout(u"export a --format prometheus --history"_s),
              u"--history doesn't go with --format prometheus."_s);
    EXPECT_EQ(complaintAbout(u"metrics a"_s), u"Unexpected argument 'a'."_s);
    EXPECT_TRUE(complaintAbout(u"export --json"_s).contains(u"json"_s));
    EXPECT_TRUE(std::holds_alternative<UnusableInvocation>(
        parseCommandLine({u"ostrel"_s, u"export"_s, u""_s})));
}

TEST_F(ExportCommandTest, AFileIsWrittenWithTheUsersMode)
{
    const mode_t before = ::umask(027);
    const ExportOutcome outcome = run(into("out.json"));
    ::umask(before);
    EXPECT_EQ(outcome.exitCode, exitDone);
    EXPECT_TRUE(outcome.complaints.isEmpty());
    EXPECT_EQ(QJsonDocument::fromJson(contentOf("out.json"))[u"format"_s].toString(), u"ostrel"_s);
    struct stat status = {};
    ASSERT_EQ(::stat(QFile::encodeName(pathOf("out.json")).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(ExportCommandTest, AFileIsNeverReplacedUnasked)
{
    fill("out.json", "mine");
    ExportInvocation invocation = into("out.json");
    expectFailure(run(invocation), u"exists already"_s);
    EXPECT_EQ(contentOf("out.json"), QByteArray("mine"));

    invocation.replaces = true;
    EXPECT_EQ(run(invocation).exitCode, exitDone);
    EXPECT_TRUE(contentOf("out.json").startsWith("{\n\"format\": \"ostrel\""));
}

TEST_F(ExportCommandTest, OnlyOrdinaryFilesAreReplaced)
{
    ASSERT_TRUE(QDir().mkdir(pathOf("folder")));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pathOf("pipe")).constData(), 0600), 0);
    for (const char *name : {"folder", "pipe"}) {
        ExportInvocation invocation = into(name);
        for (const bool replaces : {false, true}) {
            invocation.replaces = replaces;
            expectFailure(run(invocation), u"is no ordinary file"_s);
        }
    }
}

TEST_F(ExportCommandTest, WhatIsExportedIsNeverReplaced)
{
    ASSERT_TRUE(QFile::link(StoredRecords::monitorsPath(dataDir), pathOf("link")));
    const QByteArray before = contentOf("data/monitors.json");
    for (const char *name : {"data/monitors.json", "data/../data/checks.json", "link"}) {
        ExportInvocation invocation = into(name);
        invocation.replaces = true;
        expectFailure(run(invocation), u"is what is exported"_s);
    }
    EXPECT_EQ(contentOf("data/monitors.json"), before);
}

TEST_F(ExportCommandTest, AMissingFolderIsAFailure)
{
    expectFailure(run(into("missing/out.json")), u"can't write"_s);
}

TEST_F(ExportCommandTest, TheHistoryIsExportedIfItIsWanted)
{
    ExportInvocation invocation = into("plain.json");
    ASSERT_EQ(run(invocation).exitCode, exitDone);
    EXPECT_FALSE(contentOf("plain.json").contains("\"checks\""));

    invocation = into("full.json");
    invocation.hasHistory = true;
    ASSERT_EQ(run(invocation).exitCode, exitDone);
    EXPECT_TRUE(contentOf("full.json").contains("\"responseTime\":12"));

    invocation = into("table.csv");
    invocation.format = ExportFormat::csv;
    ASSERT_EQ(run(invocation).exitCode, exitDone);
    EXPECT_EQ(contentOf("table.csv").count("\r\n"), 2);
}

TEST_F(ExportCommandTest, WithoutAFileItGoesToTheOutput)
{
    fill("output", "");
    QFile output(pathOf("output"));
    ASSERT_TRUE(output.open(QIODevice::WriteOnly));
    EXPECT_EQ(runExport({.dataDir = dataDir}, output.handle()).exitCode, exitDone);
    EXPECT_TRUE(contentOf("output").endsWith("]\n}\n"));
    expectFailure(runExport({.dataDir = dataDir}, -1), u"can't write to standard output"_s);
}

TEST_F(ExportCommandTest, WhatCannotBeReadIsNotExported)
{
    ASSERT_TRUE(QFile::resize(StoredRecords::checksPath(dataDir), 3));
    EXPECT_EQ(run(into("plain.json")).exitCode, exitDone);
    ExportInvocation table = into("table.csv");
    table.format = ExportFormat::csv;
    expectFailure(run(table), u"checks.json"_s);

    ASSERT_TRUE(QFile::resize(StoredRecords::monitorsPath(dataDir), 3));
    expectFailure(run(into("broken.json")), u"monitors.json"_s);
    EXPECT_EQ(contentOf("broken.json"), QByteArray("(none)"));
    EXPECT_EQ(readMetrics({.dataDir = dataDir}), std::nullopt);
}

TEST_F(ExportCommandTest, ReadingLeavesTheFolderUnchanged)
{
    const auto before = QDir(dataDir).entryList(QDir::AllEntries | QDir::Hidden);
    ASSERT_EQ(run(into("out.json")).exitCode, exitDone);
    ASSERT_TRUE(readMetrics({.dataDir = dataDir}));
    EXPECT_EQ(QDir(dataDir).entryList(QDir::AllEntries | QDir::Hidden), before);
    EXPECT_TRUE(readMetrics({.dataDir = pathOf("missing")}));
    EXPECT_FALSE(QFile::exists(pathOf("missing")));
}

TEST_F(ExportCommandTest, AConfigurationIsAFolder)
{
    ExportInvocation invocation = into("watch");
    invocation.format = ExportFormat::prometheus;
    EXPECT_EQ(run(invocation).exitCode, exitDone);
    EXPECT_EQ(QDir(pathOf("watch")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
              (QStringList{u"README.md"_s, u"blackbox.yml"_s, u"ostrel.rules.yml"_s,
                           u"prometheus.yml"_s, u"targets"_s}));
    fill("watch/blackbox.yml", "mine");
    expectFailure(run(invocation), u"exists already"_s);
    EXPECT_EQ(contentOf("watch/blackbox.yml"), QByteArray("mine"));

    invocation.replaces = true;
    EXPECT_EQ(run(invocation).exitCode, exitDone);
    EXPECT_TRUE(contentOf("watch/blackbox.yml").contains("modules:"));

    fill("file", "");
    invocation = into("file");
    invocation.format = ExportFormat::prometheus;
    expectFailure(run(invocation), u"can't write"_s);
}

TEST_F(ExportCommandTest, AConfigurationOfWhichAFileCantBeWrittenIsAFailure)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"watch/prometheus.yml"_s));
    ExportInvocation invocation = into("watch");
    invocation.format = ExportFormat::prometheus;
    invocation.replaces = true;
    expectFailure(run(invocation), u"prometheus.yml"_s);
}

} // namespace ostrel::test
