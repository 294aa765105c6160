#include "CsvExport.h"
#include "DecodedChecks.h"
#include "ExchangeSamples.h"
#include "ImportReader.h"
#include "JsonExport.h"
#include "MonitorJson.h"
#include "Printers.h"

#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QSize>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class HistoryCounter : public CheckMapVisitor
{
public:
    void openHistory(const QUuid & /*monitorId*/) override { ++histories; }
    void takeCheck(Check && /*check*/, std::optional<TextRange> /*compact*/) override { ++checks; }

    int histories = 0;
    int checks = 0;
};

/// The example called @p name in the page about the files; empty, and a failure, if there is none.
QByteArray example(const QString &name)
{
    QFile page(u"" OSTREL_SOURCE_DIR "/docs/files.md"_s);
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    const QRegularExpression pattern(u"<!-- example: "_s + QRegularExpression::escape(name) +
                                         u" -->\\n```\\w+\\n(.*?)```\\n"_s,
                                     QRegularExpression::DotMatchesEverythingOption);
    const auto match = pattern.match(QString::fromUtf8(page.readAll()));
    EXPECT_TRUE(match.hasMatch()) << qPrintable(name);
    return match.captured(1).toUtf8();
}

/// What the example called @p name offers; fails if that has problems.
ImportContent offeredBy(const QString &name)
{
    const ImportContent content = readImport(example(name), Timestamp());
    EXPECT_TRUE(content.problems.isEmpty()) << qPrintable(content.problems.join(u'\n'));
    EXPECT_TRUE(content.notes.isEmpty()) << qPrintable(content.notes.join(u'\n'));
    return content;
}

StoredRecords recordsIn(const ImportContent &content)
{
    QList<Check> checks;
    for (const ImportedMonitor &imported : content.monitors)
        checks += QList<Check>(imported.checks.begin(), imported.checks.end());
    QList<Monitor> monitors;
    for (const ImportedMonitor &imported : content.monitors)
        monitors += imported.monitor;
    return recordsOf(monitors, checks);
}

} // namespace

TEST(DocumentedFilesTest, TheMonitorsAreRead)
{
    const auto monitors = decodeMonitors(example(u"monitors.json"_s));
    ASSERT_TRUE(monitors);
    ASSERT_EQ(monitors->size(), 2);
    EXPECT_EQ(monitors->first().keyword, u"welcome"_s);
    EXPECT_EQ(monitors->last().type, MonitorType::port);
    EXPECT_EQ(monitors->last().sslExpiryWarningDays, 14);
}

TEST(DocumentedFilesTest, TheChecksAreRead)
{
    HistoryCounter counter;
    EXPECT_TRUE(decodeCheckMap(example(u"checks.json"_s), counter));
    EXPECT_EQ(counter.histories, 1);
    EXPECT_EQ(counter.checks, 2);
}

TEST(DocumentedFilesTest, TheExportIsRead)
{
    const ImportContent content = offeredBy(u"export.json"_s);
    ASSERT_EQ(content.monitors.size(), 1);
    EXPECT_EQ(content.monitors[0].monitor.name, u"Shop"_s);
    EXPECT_EQ(content.monitors[0].checks.size(), 1U);
}

TEST(DocumentedFilesTest, TheTableIsThatOfTheExport)
{
    const StoredRecords records = recordsIn(offeredBy(u"export.json"_s));
    const QByteArray table =
        written([&](ContentWriter &content) { appendCsvExport(records, content); });
    EXPECT_EQ(QByteArray(table).replace("\r\n", "\n"), example(u"history.csv"_s));
}

TEST(DocumentedFilesTest, TheListsAreRead)
{
    const ImportContent addresses = offeredBy(u"addresses.txt"_s);
    ASSERT_EQ(addresses.monitors.size(), 4);
    EXPECT_EQ(addresses.monitors[2].monitor.name, u"Database"_s);
    EXPECT_EQ(addresses.monitors[3].monitor.url, u"2001:db8::1"_s);
    EXPECT_EQ(offeredBy(u"targets.json"_s).monitors.size(), 3);
}

TEST(DocumentedFilesTest, ThePreferencesAreRead)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"Ostrel.conf"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(example(u"Ostrel.conf"_s));
    file.close();
    const QSettings values(file.fileName(), QSettings::IniFormat);
    EXPECT_EQ(values.value(u"playSounds"_s).toBool(), true);
    EXPECT_EQ(values.value(u"launchAtLogin"_s, true).toBool(), false);
    EXPECT_EQ(values.value(u"sidebarWidth"_s).toReal(), 240);
    EXPECT_EQ(values.value(u"mainWindowSize"_s).toSize(), QSize(1000, 700));
}

TEST(DocumentedFilesTest, EveryMemberIsNamed)
{
    QFile page(u"" OSTREL_SOURCE_DIR "/docs/files.md"_s);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    Monitor monitor = portMonitor(1, u"db.example"_s, 1);
    monitor.keyword = u"k"_s;
    monitor.responseTimeThreshold = Milliseconds(1);
    Check check = checkAt(monitor, 1, false);
    check.statusCode = 500;
    check.error = u"e"_s;
    check.sslExpiresAt = check.timestamp;
    check.keywordFound = true;
    const StoredRecords records = recordsOf({monitor}, {check});
    const QByteArray json = written([&](ContentWriter &content) {
        appendJsonExport(records, ExportedHistory::included, check.timestamp, content);
    });
    static const QRegularExpression member(u"\"([a-zA-Z]+)\":"_s);
    int count = 0;
    for (const auto &match : member.globalMatch(QString::fromUtf8(json))) {
        EXPECT_TRUE(text.contains(u'`' + match.captured(1) + u'`') ||
                    text.contains(u'"' + match.captured(1) + u"\":"_s))
            << qPrintable(match.captured(1));
        ++count;
    }
    EXPECT_GT(count, 25);
}

} // namespace ostrel::test
