#include "StatusCommand.h"

#include "ForeignTexts.h"
#include "MonitorStore.h"
#include "PlainUser.h"
#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

Check checkOf(const Monitor &monitor, bool isUp)
{
    Check check;
    check.id = QUuid::createUuid();
    check.monitorId = monitor.id;
    check.timestamp = systemNow();
    check.isUp = isUp;
    check.responseTime = 245;
    if (!isUp)
        check.error = u"HTTP 503"_s;
    return check;
}

class StatusCommandTest : public testing::Test
{
protected:
    StatusCommandTest()
    {
        MonitorStore store(dataDir);
        for (Monitor *monitor : {&up, &down, &paused, &pending}) {
            monitor->id = QUuid::createUuid();
            monitor->url = u"https://%1.example/"_s.arg(monitor->name);
        }
        paused.isEnabled = false;
        for (const Monitor &monitor : {up, down, paused, pending})
            store.addMonitor(monitor);
        store.addCheck(checkOf(up, true));
        store.addCheck(checkOf(down, true));
        store.addCheck(checkOf(down, false));
        store.addCheck(checkOf(paused, true));
    }

    QTemporaryDir folder;
    const QString dataDir = folder.filePath(u"data"_s);
    Monitor up{.id = {}, .name = u"up"_s};
    Monitor down{.id = {}, .name = u"down"_s};
    Monitor paused{.id = {}, .name = u"paused"_s};
    Monitor pending{.id = {}, .name = u"pending"_s};
};

} // namespace

TEST_F(StatusCommandTest, HumanOutputHasALinePerMonitor)
{
    const QByteArray text = readStatus({.dataDir = dataDir}).value_or(QByteArray());
    const auto lines = text.split('\n');
    ASSERT_EQ(lines.size(), 5);
    EXPECT_TRUE(
        lines[0].startsWith("UP       up       24h 100.0%, 7d 100.0%, 30d 100.0%  245 ms at "))
        << lines[0].toStdString();
    EXPECT_TRUE(
        lines[1].startsWith("DOWN     down     24h 50.0%, 7d 50.0%, 30d 50.0%  HTTP 503 at "))
        << lines[1].toStdString();
    EXPECT_TRUE(lines[2].startsWith("PAUSED   paused ")) << lines[2].toStdString();
    EXPECT_TRUE(lines[3].endsWith("not checked yet")) << lines[3].toStdString();
}

TEST_F(StatusCommandTest, HumanOutputShowsForeignTextsOnOneLineEach)
{
    const QString foreignDir = folder.filePath(u"foreign"_s);
    MonitorStore store(foreignDir);
    for (const ForeignText &foreign : foreignTexts()) {
        Monitor monitor{.id = QUuid::createUuid(), .name = foreign.text};
        store.addMonitor(monitor);
        Check check = checkOf(monitor, false);
        check.error = foreign.text;
        store.addCheck(check);
    }
    const QString text = QString::fromUtf8(describeStatus(store, OutputFormat::human));
    const QStringList lines = text.split(u'\n');
    ASSERT_EQ(lines.size(), foreignTexts().size() + 1);
    for (const QString &line : lines.first(lines.size() - 1)) {
        EXPECT_TRUE(line.startsWith(u"DOWN     "_s));
        EXPECT_TRUE(isFitForPeople(line)) << qPrintable(line);
    }
}

TEST_F(StatusCommandTest, ALongNameShiftsOnlyItsOwnLine)
{
    MonitorStore store(dataDir);
    const QString longName(100, u'w');
    store.addMonitor({.id = QUuid::createUuid(), .name = longName});
    const auto lines = describeStatus(store, OutputFormat::human).split('\n');
    EXPECT_EQ(lines[0].indexOf("24h"), 9 + 40 + 2);
    EXPECT_EQ(lines[4].indexOf("24h"), 9 + 100 + 2);
}

TEST_F(StatusCommandTest, JsonOutputKeepsAForeignNameAsStored)
{
    const QString foreignDir = folder.filePath(u"foreign"_s);
    MonitorStore store(foreignDir);
    const QString name = u"Sh\x1b[2J\n\u202Eop"_s + QString(300, u'a');
    store.addMonitor({.id = QUuid::createUuid(), .name = name});
    const QJsonArray monitors =
        QJsonDocument::fromJson(describeStatus(store, OutputFormat::json)).array();
    EXPECT_EQ(monitors[0].toObject()[u"name"_s].toString(), name);
}

TEST_F(StatusCommandTest, HalfMillisecondsAreRoundedToEven)
{
    MonitorStore store(dataDir);
    Check check = checkOf(up, true);
    check.responseTime = 500.5;
    store.addCheck(check);
    EXPECT_TRUE(describeStatus(store, OutputFormat::human).contains("  500 ms at "));
}

TEST_F(StatusCommandTest, JsonOutputHasEverythingInTheStoresOrder)
{
    const QByteArray text =
        readStatus({.dataDir = dataDir, .format = OutputFormat::json}).value_or(QByteArray());
    const QJsonArray monitors = QJsonDocument::fromJson(text).array();
    ASSERT_EQ(monitors.size(), 4);
    const QJsonObject second = monitors[1].toObject();
    EXPECT_EQ(second[u"name"_s].toString(), u"down"_s);
    EXPECT_EQ(second[u"id"_s].toString(), down.id.toString(QUuid::WithoutBraces).toUpper());
    EXPECT_EQ(second[u"status"_s].toString(), u"down"_s);
    EXPECT_EQ(second[u"type"_s].toString(), u"http"_s);
    EXPECT_EQ(second[u"uptime"_s][u"24h"_s].toDouble(), 0.5);
    EXPECT_EQ(second[u"latestCheck"_s][u"error"_s].toString(), u"HTTP 503"_s);
    EXPECT_FALSE(monitors[3].toObject().contains(u"latestCheck"_s));
}

TEST_F(StatusCommandTest, ReadingLeavesTheFolderUnchanged)
{
    QFile leftover(dataDir + u"/checks.json.tmp"_s);
    ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));
    leftover.close();
    const auto before = QDir(dataDir).entryList(QDir::AllEntries | QDir::Hidden);

    static_cast<void>(readStatus({.dataDir = dataDir}));
    EXPECT_EQ(QDir(dataDir).entryList(QDir::AllEntries | QDir::Hidden), before);
}

TEST_F(StatusCommandTest, AMissingFolderHasNoMonitorsAndIsNotCreated)
{
    const QString missing = folder.filePath(u"missing"_s);
    EXPECT_EQ(readStatus({.dataDir = missing}), QByteArray("No monitors\n"));
    EXPECT_EQ(readStatus({.dataDir = missing, .format = OutputFormat::json}), QByteArray("[\n]\n"));
    EXPECT_FALSE(QDir(missing).exists());
}

TEST_F(StatusCommandTest, AFolderWithoutAMonitorsFileHasNoMonitors)
{
    const QTemporaryDir empty;
    EXPECT_EQ(readStatus({.dataDir = empty.path()}), QByteArray("No monitors\n"));
    ASSERT_TRUE(QFile::link(empty.filePath(u"gone"_s), empty.filePath(u"monitors.json"_s)));
    EXPECT_EQ(readStatus({.dataDir = empty.path()}), QByteArray("No monitors\n"));
}

TEST_F(StatusCommandTest, AnUnreadableMonitorsFileIsAFailure)
{
    const QString path = StoredRecords::monitorsPath(dataDir);
    const std::function<bool()> makers[] = {
        [&] { return QFile(path).resize(3); },
        [&] { return QFile(path).resize(0); },
        [&] { return QFile::remove(path) && QDir().mkdir(path); },
        [&] {
            return QDir().rmdir(path) && ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
        },
        [&] { return QDir(dataDir).removeRecursively() && QFile(dataDir).open(QFile::WriteOnly); },
    };
    for (const auto &make : makers) {
        ASSERT_TRUE(make());
        for (const OutputFormat format : {OutputFormat::human, OutputFormat::json})
            EXPECT_EQ(readStatus({.dataDir = dataDir, .format = format}), std::nullopt)
                << &make - makers;
    }
}

TEST_F(StatusCommandTest, AnUnreadableFolderIsAFailure)
{
    ASSERT_EQ(::chmod(QFile::encodeName(dataDir).constData(), 0), 0);
    {
        const PlainUser plain; // subject to file modes
        EXPECT_EQ(readStatus({.dataDir = dataDir}), std::nullopt);
    }
    ASSERT_EQ(::chmod(QFile::encodeName(dataDir).constData(), 0700), 0);
}

} // namespace ostrel::test
