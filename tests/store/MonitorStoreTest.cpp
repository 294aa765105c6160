#include "MonitorStore.h"

#include "CheckJson.h"
#include "MonitorJson.h"
#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

using namespace std::chrono;

constexpr Timestamp start = sys_days(2026y / 11 / 20) + 19h + 15min;

class MonitorStoreTest : public testing::Test
{
protected:
    void SetUp() override { open(); }

    void open(MonitorStore::Access access = MonitorStore::Access::readWrite)
    {
        m_store.reset();
        m_store = std::make_unique<MonitorStore>(folder(), access, [this] { return m_now; });
    }
    [[nodiscard]] QString folder() const { return m_root.filePath(u"parent/store"_s); }
    [[nodiscard]] QString pathOf(const char *name) const
    {
        return folder() + QLatin1Char('/') + QString::fromUtf8(name);
    }
    [[nodiscard]] QByteArray contentOf(const char *name) const
    {
        QFile file(pathOf(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(none)");
    }
    /// The ids of all monitors, known or not, that have a stored history.
    [[nodiscard]] QList<QUuid> storedIds() const
    {
        QList<QUuid> ids;
        for (const auto &[id, history] : StoredRecords::read(folder()).checks)
            ids += id;
        return ids;
    }
    void fill(const char *name, const QByteArray &content) const
    {
        QFile file(pathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    static unsigned modeOf(const QString &path)
    {
        struct stat status
        {
        };
        ::stat(QFile::encodeName(path).constData(), &status);
        return status.st_mode & 07777U;
    }

    Monitor add(bool isEnabled = true)
    {
        Monitor monitor;
        monitor.id = QUuid::createUuid();
        monitor.url = u"https://a.example"_s;
        monitor.isEnabled = isEnabled;
        m_store->addMonitor(monitor);
        return monitor;
    }
    [[nodiscard]] Check checkOf(const QUuid &monitorId, bool isUp = true, double time = 100) const
    {
        Check check;
        check.id = QUuid::createUuid();
        check.monitorId = monitorId;
        check.timestamp = m_now;
        check.isUp = isUp;
        check.responseTime = time;
        return check;
    }
    Check record(const QUuid &monitorId, bool isUp = true, double time = 100)
    {
        const Check check = checkOf(monitorId, isUp, time);
        m_store->addCheck(check);
        return check;
    }

    /// Waits until a change of a file is sure to get a later time than earlier changes.
    static void waitForTheFileSystemsClock() { QThread::msleep(20); }

    QTemporaryDir m_root;
    Timestamp m_now = start;
    std::unique_ptr<MonitorStore> m_store;
};

TEST_F(MonitorStoreTest, ANewMonitorMayHaveAHistory)
{
    Monitor monitor{.id = QUuid::createUuid(), .url = u"https://a.example"_s};
    std::vector<Check> history;
    for (std::size_t i = 0; i < MonitorStore::maxChecksPerMonitor + 1; ++i)
        history.push_back(checkOf(monitor.id, true, double(i)));
    int signalled = 0;
    QObject::connect(m_store.get(), &MonitorStore::checksChanged, [&] { ++signalled; });
    m_store->addMonitor(monitor, history);
    EXPECT_EQ(signalled, 1);
    EXPECT_EQ(m_store->checks(monitor.id).size(), MonitorStore::maxChecksPerMonitor);
    EXPECT_EQ(m_store->checks(monitor.id).back(), history.back());
    open(MonitorStore::Access::readOnly);
    EXPECT_EQ(m_store->checks(monitor.id).size(), MonitorStore::maxChecksPerMonitor);
}

TEST_F(MonitorStoreTest, ChangesThatAreMadeTogetherAreSavedOnceAtTheEnd)
{
    const Monitor kept = add();
    const QByteArray before = contentOf("monitors.json");
    Monitor added;
    m_store->changeTogether([&] {
        added = add();
        m_store->deleteMonitor(kept.id);
        m_store->addCheck(checkOf(added.id));
        EXPECT_EQ(contentOf("monitors.json"), before);
    });
    EXPECT_TRUE(m_store->canSave());
    open(MonitorStore::Access::readOnly);
    EXPECT_EQ(m_store->monitors(), QList<Monitor>{added});
    EXPECT_EQ(m_store->checks(added.id).size(), 1u);
}

TEST_F(MonitorStoreTest, MonitorWithoutChecksIsPendingAndFullyUp)
{
    const Monitor monitor = add();
    EXPECT_EQ(m_store->status(monitor), MonitorStatus::pending);
    EXPECT_FALSE(m_store->latestCheck(monitor));
    for (const auto window : {1h, 24h, 168h, 720h}) {
        EXPECT_EQ(m_store->uptime(monitor.id, window), 1.0) << window.count();
        EXPECT_EQ(m_store->averageResponseTime(monitor.id, window), 0.0) << window.count();
        EXPECT_TRUE(m_store->recentChecks(monitor.id, window).empty()) << window.count();
    }
}

TEST_F(MonitorStoreTest, PausedMonitorIsPausedAndLeftOutOfTheWhole)
{
    Monitor monitor = add();
    record(monitor.id, false);
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::down);
    monitor.isEnabled = false;
    m_store->updateMonitor(monitor);
    EXPECT_EQ(m_store->status(monitor), MonitorStatus::paused);
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::pending);
    record(add().id, true);
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::up);
}

TEST_F(MonitorStoreTest, WholeIsPendingWhileOneWasNeverChecked)
{
    record(add().id, true);
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::up);
    const Monitor second = add();
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::pending);
    record(second.id, false);
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::down);
}

TEST_F(MonitorStoreTest, WholeIsDownWhicheverMonitorIsDown)
{
    add();
    record(add().id, true);
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::pending);
    record(add().id, false);
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::down);
    record(add().id, true);
    add();
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::down);
}

TEST_F(MonitorStoreTest, WholeIsPendingWithoutEnabledMonitors)
{
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::pending);
    record(add(false).id, true);
    EXPECT_EQ(m_store->overallStatus(), MonitorStatus::pending);
}

TEST_F(MonitorStoreTest, OneCheckTooManyDropsTheOldestOfItsMonitorOnly)
{
    const Monitor full = add();
    const Monitor other = add();
    const std::vector untouched = {record(other.id), record(other.id, false)};
    const auto historyOfOther = [&] {
        const auto checks = m_store->checks(other.id);
        return std::vector(checks.begin(), checks.end());
    };
    const Check oldest = record(full.id);
    const Check second = record(full.id);
    for (std::size_t i = 2; i < MonitorStore::maxChecksPerMonitor; ++i)
        record(full.id);
    ASSERT_EQ(m_store->checks(full.id).size(), 2000U);
    EXPECT_EQ(m_store->checks(full.id).front(), oldest);
    const Check newest = record(full.id);
    EXPECT_EQ(m_store->checks(full.id).size(), 2000U);
    EXPECT_EQ(m_store->checks(full.id).front(), second);
    EXPECT_EQ(m_store->latestCheck(full), newest);
    EXPECT_EQ(historyOfOther(), untouched);
    open();
    EXPECT_EQ(m_store->checks(full.id).size(), 2000U);
    EXPECT_EQ(m_store->checks(full.id).front(), second);
    EXPECT_EQ(historyOfOther(), untouched);
}

TEST_F(MonitorStoreTest, HistoryOfFailuresHasZeroStatistics)
{
    const Monitor monitor = add();
    record(monitor.id, false);
    record(monitor.id, false);
    EXPECT_EQ(m_store->uptime(monitor.id, 24h), 0.0);
    EXPECT_EQ(m_store->averageResponseTime(monitor.id, 24h), 0.0);
}

TEST_F(MonitorStoreTest, StatisticsCoverTheirWindow)
{
    const Monitor monitor = add();
    record(monitor.id, false, 7000);
    record(monitor.id, true, 7000);
    m_now += 24h + 1ms;
    const Check up = record(monitor.id, true, 100);
    const Check down = record(monitor.id, false, 900);
    const Check again = record(monitor.id, true, 201);
    EXPECT_EQ(m_store->uptime(monitor.id, 24h), 2.0 / 3);
    EXPECT_EQ(m_store->uptime(monitor.id, 168h), 0.6);
    EXPECT_EQ(m_store->averageResponseTime(monitor.id, 24h), 150.5);
    EXPECT_EQ(m_store->averageResponseTime(monitor.id, 168h), 7301.0 / 3);
    EXPECT_EQ(m_store->recentChecks(monitor.id, 24h), (std::vector{up, down, again}));
}

TEST_F(MonitorStoreTest, CheckAtTheCutOffIsInside)
{
    const Monitor monitor = add();
    const Check failed = record(monitor.id, false);
    const Check slow = record(monitor.id, true, 900);
    m_now += 24h;
    EXPECT_EQ(m_store->recentChecks(monitor.id, 24h), (std::vector{failed, slow}));
    EXPECT_EQ(m_store->uptime(monitor.id, 24h), 0.5);
    EXPECT_EQ(m_store->averageResponseTime(monitor.id, 24h), 900.0);
    m_now += 1ms;
    EXPECT_TRUE(m_store->recentChecks(monitor.id, 24h).empty());
    EXPECT_EQ(m_store->uptime(monitor.id, 24h), 1.0) << "as if there were no checks at all";
    EXPECT_EQ(m_store->averageResponseTime(monitor.id, 24h), 0.0);
}

TEST_F(MonitorStoreTest, HistoryOutOfOrderIsFilteredOneByOne)
{
    const Monitor monitor = add();
    const Check first = record(monitor.id);
    m_now -= 48h;
    record(monitor.id, false);
    m_now += 49h;
    const Check last = record(monitor.id);
    EXPECT_EQ(m_store->recentChecks(monitor.id, 24h), (std::vector{first, last}));
}

TEST_F(MonitorStoreTest, UnknownMethodMakesTheFileUnreadableAndTheNextEditOverwritesIt)
{
    add();
    add();
    QByteArray json = contentOf("monitors.json");
    json.replace(json.indexOf("\"GET\""), 5, "\"PUT\"");
    fill("monitors.json", json);
    open();
    EXPECT_TRUE(m_store->monitors().isEmpty());
    const Monitor only = add();
    EXPECT_EQ(decodeMonitors(contentOf("monitors.json")), QList<Monitor>{only});
    EXPECT_EQ(contentOf("monitors.json.unreadable-20261120T191500Z"), json);
}

TEST_F(MonitorStoreTest, UnreadableFileIsKeptOnceAndUnderAFreeName)
{
    for (const char *kept :
         {"checks.json.unreadable-20261120T191500Z", "checks.json.unreadable-20261120T191500Z-2"}) {
        fill("checks.json", "[");
        open();
        EXPECT_EQ(contentOf("checks.json"), QByteArrayLiteral("["));
        const qsizetype before = names().size();
        record(QUuid::createUuid());
        record(QUuid::createUuid());
        EXPECT_EQ(contentOf(kept), QByteArrayLiteral("["));
        EXPECT_EQ(names().size(), before + 1);
    }
}

TEST_F(MonitorStoreTest, EmptyFileCountsAsUnreadable)
{
    fill("monitors.json", "");
    open();
    add();
    EXPECT_EQ(contentOf("monitors.json.unreadable-20261120T191500Z"), QByteArray(""));
}

TEST_F(MonitorStoreTest, MonitorAddedWithoutACheckHasNoStoredHistory)
{
    const Monitor first = add();
    record(first.id);
    const QByteArray before = contentOf("checks.json");
    const Monitor second = add();
    EXPECT_EQ(contentOf("checks.json"), before);
    EXPECT_EQ(storedIds(), QList<QUuid>{first.id});
    open();
    EXPECT_EQ(m_store->status(second), MonitorStatus::pending);
}

TEST_F(MonitorStoreTest, AddingReplacesTheHistoryOfItsId)
{
    Monitor monitor;
    monitor.id = QUuid::createUuid();
    record(monitor.id);
    m_store->addMonitor(monitor);
    EXPECT_TRUE(m_store->checks(monitor.id).empty());
}

TEST_F(MonitorStoreTest, EditKeepsPositionAndHistory)
{
    Monitor first = add();
    const Monitor second = add();
    const Check check = record(first.id);
    first.name = u"renamed"_s;
    m_store->updateMonitor(first);
    EXPECT_EQ(m_store->monitors(), (QList<Monitor>{first, second}));
    EXPECT_EQ(m_store->latestCheck(first), check);
    EXPECT_EQ(m_store->monitor(first.id), first);
    EXPECT_FALSE(m_store->monitor(QUuid::createUuid()));
}

TEST_F(MonitorStoreTest, EditOfAnUnknownMonitorSavesNothing)
{
    int changes = 0;
    QObject::connect(m_store.get(), &MonitorStore::monitorsChanged, [&] { ++changes; });
    Monitor monitor;
    monitor.id = QUuid::createUuid();
    m_store->updateMonitor(monitor);
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(MonitorStoreTest, DeletingRemovesMonitorAndHistory)
{
    const Monitor first = add();
    const Monitor second = add();
    record(first.id);
    record(second.id);
    m_store->deleteMonitor(m_store->monitors().first().id);
    EXPECT_EQ(m_store->monitors(), QList<Monitor>{second});
    EXPECT_TRUE(m_store->checks(first.id).empty());
    EXPECT_EQ(storedIds(), QList<QUuid>{second.id});
    open();
    EXPECT_EQ(m_store->monitors(), QList<Monitor>{second});
    EXPECT_EQ(m_store->checks(second.id).size(), 1U);
}

TEST_F(MonitorStoreTest, DeletingAnUnknownMonitorRewritesBothFiles)
{
    m_store->deleteMonitor(QUuid::createUuid());
    EXPECT_EQ(contentOf("checks.json"), QByteArrayLiteral("[]"));
    EXPECT_EQ(decodeMonitors(contentOf("monitors.json")), QList<Monitor>());
}

TEST_F(MonitorStoreTest, CheckOfAnUnknownMonitorIsKept)
{
    const Check check = record(QUuid::createUuid());
    open();
    ASSERT_EQ(m_store->checks(check.monitorId).size(), 1U);
    EXPECT_EQ(m_store->checks(check.monitorId).front(), check);
}

TEST_F(MonitorStoreTest, ChecksOfOneSecondKeepTheirOrder)
{
    const Monitor monitor = add();
    m_now += 1ms;
    const Check first = record(monitor.id, false);
    m_now += 998ms;
    const Check second = record(monitor.id, true);
    open();
    const auto checks = m_store->checks(monitor.id);
    ASSERT_EQ(checks.size(), 2U);
    EXPECT_EQ(checks[0].id, first.id);
    EXPECT_EQ(checks[1].id, second.id);
    EXPECT_EQ(checks[0].timestamp, checks[1].timestamp);
    EXPECT_EQ(m_store->status(monitor), MonitorStatus::up);
}

TEST_F(MonitorStoreTest, LongHistoryIsTrimmedByTheNextCheckOnly)
{
    const QUuid id = QUuid::createUuid();
    std::string json(CheckHistory(id).opening());
    for (int i = 0; i < 2500; ++i) {
        json += i == 0 ? "" : ",";
        appendCheck(json, checkOf(id));
    }
    fill("checks.json", QByteArray::fromStdString("[" + json + "]]"));
    open();
    EXPECT_EQ(m_store->checks(id).size(), 2500U);
    record(id);
    EXPECT_EQ(m_store->checks(id).size(), 2000U);
}

TEST_F(MonitorStoreTest, OfARepeatedIdTheLastHistoryCounts)
{
    const Check check = record(QUuid::createUuid());
    QByteArray json = contentOf("checks.json");
    const QByteArray pair = json.mid(1, json.size() - 2);
    fill("checks.json", "[" + pair + "," + pair.left(39) + "[]]");
    open();
    EXPECT_TRUE(m_store->checks(check.monitorId).empty());
}

TEST_F(MonitorStoreTest, ChangesThatOthersMakeToTheFileAreUndoneByTheNextSave)
{
    const auto cutShort = [&](const QByteArray &json) { fill("checks.json", json.left(200)); };
    const auto blankOut = [&](const QByteArray &json) {
        fill("checks.json", QByteArray(json.size(), ' '));
    };
    const auto lengthen = [&](const QByteArray &json) { fill("checks.json", "{}" + json); };
    const auto remove = [&](const QByteArray &) { QFile::remove(pathOf("checks.json")); };
    const auto replace = [&](const QByteArray &) {
        QFile::remove(pathOf("checks.json"));
        fill("checks.json", "[]");
    };
    const auto giveAnotherName = [&](const QByteArray &) {
        QFile::remove(pathOf("taken.json"));
        ASSERT_TRUE(QFile::rename(pathOf("checks.json"), pathOf("taken.json")));
    };
    const Monitor monitor = add();
    std::vector<Check> expected = {record(monitor.id), record(monitor.id)};
    for (const std::function<void(const QByteArray &)> &meddle :
         {std::function<void(const QByteArray &)>(cutShort),
          {blankOut},
          {lengthen},
          {remove},
          {replace},
          {giveAnotherName}}) {
        for (const bool isLoadedAnew : {true, false}) {
            if (isLoadedAnew)
                open();
            waitForTheFileSystemsClock();
            meddle(contentOf("checks.json"));
            expected.push_back(record(monitor.id));
            expected.push_back(record(monitor.id));
            const MonitorStore other(folder(), MonitorStore::Access::readOnly);
            const auto stored = other.checks(monitor.id);
            ASSERT_EQ(std::vector(stored.begin(), stored.end()), expected);
        }
    }
}

TEST_F(MonitorStoreTest, FileWithBlanksIsWrittenWithoutThem)
{
    const Monitor monitor = add();
    const std::vector<Check> checks = {record(monitor.id), record(monitor.id), record(monitor.id)};
    const QByteArray compact = contentOf("checks.json");
    for (const auto &[text, withBlanks] :
         {std::pair("},{", "}, {"), std::pair("\",[{", "\", [\n{"), std::pair(":true", ": true")}) {
        QByteArray json = compact;
        json.replace(json.indexOf(text), QByteArrayView(text).size(), withBlanks);
        fill("checks.json", json);
        open();
        m_store->addCheck(checks.back());
        std::string expected = "[";
        expected += CheckHistory(monitor.id).opening();
        for (const Check &check : {checks[0], checks[1], checks[2], checks[2]}) {
            expected += expected.ends_with('[') ? "" : ",";
            appendCheck(expected, check);
        }
        EXPECT_EQ(contentOf("checks.json").toStdString(), expected + "]]") << withBlanks;
    }
}

TEST_F(MonitorStoreTest, HistoriesOfChecksOfManyLengthsStayApart)
{
    const std::array ids = {QUuid::createUuid(), QUuid::createUuid(), QUuid::createUuid()};
    const auto recordOne = [&](qsizetype i) {
        Check check = checkOf(ids[static_cast<std::size_t>(i % 3)]);
        check.error = QString(i * i, u'x');
        m_store->addCheck(check);
    };
    // The first twenty can't be saved at once, so that one save has many to write.
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    ASSERT_TRUE(QFile(folder()).open(QIODevice::WriteOnly));
    for (int i = 0; i < 20; ++i)
        recordOne(i);
    ASSERT_TRUE(QFile::remove(folder()));
    for (int i = 20; i < 30; ++i)
        recordOne(i);
    const MonitorStore other(folder(), MonitorStore::Access::readOnly);
    for (const QUuid &id : ids) {
        ASSERT_EQ(other.checks(id).size(), 10U);
        EXPECT_TRUE(std::ranges::equal(other.checks(id), m_store->checks(id)));
    }
}

TEST_F(MonitorStoreTest, ChecksFileIsCompactAndAlternates)
{
    const Monitor monitor = add();
    const Check check = record(monitor.id);
    std::string expected =
        "[\"" + monitor.id.toString(QUuid::WithoutBraces).toUpper().toStdString() + "\",[";
    appendCheck(expected, check);
    EXPECT_EQ(contentOf("checks.json").toStdString(), expected + "]]");
}

TEST_F(MonitorStoreTest, SignalsComeAfterTheSaveAndSeparately)
{
    QStringList events;
    QObject::connect(m_store.get(), &MonitorStore::monitorsChanged, [&] {
        events += u"monitors %1"_s.arg(
            decodeMonitors(contentOf("monitors.json")).value_or(QList<Monitor>()).size());
    });
    QObject::connect(m_store.get(), &MonitorStore::checksChanged, [&](const QUuid &id) {
        events +=
            u"checks %1"_s.arg(contentOf("checks.json").count(QByteArrayLiteral("timestamp")));
        EXPECT_FALSE(id.isNull());
    });
    const Monitor monitor = add();
    record(monitor.id);
    m_store->updateMonitor(monitor);
    m_store->deleteMonitor(monitor.id);
    EXPECT_EQ(events.join(u", "), u"monitors 1, checks 1, monitors 1, monitors 0, checks 0"_s);
}

TEST_F(MonitorStoreTest, FolderAndFilesArePrivateToTheirUser)
{
    record(add().id);
    EXPECT_EQ(modeOf(folder()), 0700U);
    EXPECT_EQ(modeOf(m_root.filePath(u"parent"_s)), 0700U);
    EXPECT_EQ(modeOf(pathOf("monitors.json")), 0600U);
    EXPECT_EQ(modeOf(pathOf("checks.json")), 0600U);
}

TEST_F(MonitorStoreTest, StandardFolderIsInTheUsersDataFolder)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_root.path()));
    EXPECT_EQ(MonitorStore::defaultStorageDir(), m_root.filePath(u"Vantry"_s));
}

TEST_F(MonitorStoreTest, LeftoversOfACrashAreRemoved)
{
    fill("monitors.json.tmp", "half");
    fill("checks.json.tmp", "half");
    open();
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(MonitorStoreTest, ReadOnlyLeavesTheFolderUnchanged)
{
    const Monitor monitor = add();
    fill("checks.json", "[");
    fill("checks.json.tmp", "half");
    const QStringList before = names();
    open(MonitorStore::Access::readOnly);
    EXPECT_EQ(m_store->monitors(), QList<Monitor>{monitor});
    add();
    record(monitor.id);
    EXPECT_EQ(names(), before);
    EXPECT_EQ(contentOf("checks.json"), QByteArrayLiteral("["));
    const QString missing = m_root.filePath(u"missing"_s);
    const MonitorStore store(missing, MonitorStore::Access::readOnly);
    EXPECT_FALSE(QDir(missing).exists());
}

} // namespace
} // namespace ostrel
