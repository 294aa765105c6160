#include "CheckJson.h"
#include "DecodedChecks.h"
#include "MonitorJson.h"
#include "MonitorStore.h"
#include "Printers.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

constexpr int monitorCount = 3;
constexpr int kills = 40;
/// Fewer, because each save and each reading of the files covers a full store.
constexpr int killsWhenFull = 12;

/// The ids of each monitor's checks, oldest first.
using Histories = std::map<QUuid, std::vector<QUuid>>;

class HistoriesReader : public CheckMapVisitor
{
public:
    void openHistory(const QUuid &monitorId) override { m_open = &histories[monitorId]; }
    void takeCheck(Check &&check, std::optional<TextRange> /*compact*/) override
    {
        m_open->push_back(check.id);
    }

    Histories histories;

private:
    std::vector<QUuid> *m_open = nullptr;
};

/// What a recorder has reported as saved, over all its runs.
struct Report
{
    Histories checks;
    int lastEdit = 0;

    void take(const QByteArray &line)
    {
        const auto words = line.trimmed().split(' ');
        if (words.size() == 3 && words[0] == "check")
            checks[QUuid::fromString(QLatin1StringView(words[1]))].push_back(
                QUuid::fromString(QLatin1StringView(words[2])));
        else if (words.size() == 2 && words[0] == "edit")
            lastEdit = words[1].toInt();
    }
};

class KilledStoreTest : public testing::TestWithParam<unsigned>
{
protected:
    /// Begins with full histories, to which nothing can be added without dropping something.
    void fillHistories()
    {
        std::string json;
        for (int i = 0; i < monitorCount; ++i) {
            Monitor monitor;
            monitor.id = QUuid::createUuid();
            monitor.name = u"0"_s;
            MonitorStore(m_folder.path()).addMonitor(monitor);
            json += i == 0 ? "[" : ",";
            appendHistory(json, monitor.id);
        }
        QFile file(m_folder.path() + u"/checks.json"_s);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write((json + "]").c_str());
    }

    static void appendHistory(std::string &json, const QUuid &monitorId)
    {
        json += '"' + monitorId.toString(QUuid::WithoutBraces).toUpper().toStdString() + "\",[";
        for (std::size_t i = 0; i < MonitorStore::maxChecksPerMonitor; ++i) {
            Check check;
            check.id = QUuid::createUuid();
            check.monitorId = monitorId;
            check.timestamp = systemNow();
            json += i == 0 ? "" : ",";
            appendCheck(json, check);
        }
        json += ']';
    }

    void killAgainAndAgain(int killCount)
    {
        std::minstd_rand random(GetParam());
        for (int i = 0; i < killCount && !HasFailure(); ++i) {
            runAndKill(std::chrono::microseconds(std::uniform_int_distribution(0, 40'000)(random)));
            readFiles();
            expectNothingLost();
        }
        EXPECT_GT(m_report.lastEdit, 0);
        EXPECT_EQ(m_report.checks.size(), std::size_t(monitorCount));
    }

    /// Lets a recorder run for @p life after its first line, and kills it.
    void runAndKill(std::chrono::microseconds life)
    {
        QProcess recorder;
        recorder.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        recorder.start(u"" CHECK_RECORDER ""_s, {m_folder.path()});
        ASSERT_TRUE(recorder.waitForReadyRead());
        const auto end = std::chrono::steady_clock::now() + life;
        while (std::chrono::steady_clock::now() < end)
            readFiles();
        recorder.kill();
        ASSERT_TRUE(recorder.waitForFinished());
        while (recorder.canReadLine())
            m_report.take(recorder.readLine());
    }

    /// Reads the files, as others may at any time.
    void readFiles()
    {
        EXPECT_TRUE(decodeMonitors(contentOf("/monitors.json")));
        const QByteArray checks = contentOf("/checks.json");
        // The file isn't written before the first check.
        if (checks.isNull() && m_seen.empty())
            return;
        HistoriesReader reader;
        ASSERT_TRUE(test::decodeCheckMap(checks, reader));
        for (const auto &[monitorId, before] : m_seen)
            expectContinued(reader.histories[monitorId], before);
        m_seen = std::move(reader.histories);
    }

    /// Expects everything in @p before to be still there, except the oldest if newer ones replace
    /// them.
    static void expectContinued(std::span<const QUuid> history, std::span<const QUuid> before)
    {
        if (before.empty())
            return;
        const auto last = std::ranges::find(history, before.back());
        ASSERT_NE(last, history.end());
        const auto kept = static_cast<std::size_t>(last - history.begin()) + 1;
        ASSERT_TRUE(kept == before.size() || isFull(history));
        EXPECT_TRUE(std::ranges::equal(history.first(kept), before.last(kept)));
    }

    void expectNothingLost() const
    {
        const MonitorStore store(m_folder.path(), MonitorStore::Access::readOnly);
        ASSERT_EQ(store.monitors().size(), monitorCount);
        EXPECT_GE(store.monitors().first().name.toInt(), m_report.lastEdit);
        for (const auto &[monitorId, reported] : m_report.checks) {
            std::vector<QUuid> history;
            std::ranges::transform(store.checks(monitorId), std::back_inserter(history),
                                   &Check::id);
            EXPECT_EQ(history, m_seen.at(monitorId));
            expectReported(history, reported);
        }
    }

    /// Expects everything reported to be there in its order, except the oldest if there are too
    /// many. There may be more: checks that were saved at the end of a run but not reported any
    /// more.
    static void expectReported(std::span<const QUuid> history, std::span<const QUuid> reported)
    {
        const std::set<QUuid> kept(history.begin(), history.end());
        const auto oldest =
            std::ranges::find_if(reported, [&](const QUuid &id) { return kept.contains(id); });
        ASSERT_NE(oldest, reported.end());
        EXPECT_TRUE(oldest == reported.begin() || isFull(history));
        auto check = history.begin();
        for (auto id = oldest; id != reported.end(); ++id) {
            check = std::find(check, history.end(), *id);
            ASSERT_NE(check, history.end());
        }
    }

    static bool isFull(std::span<const QUuid> history)
    {
        return history.size() == MonitorStore::maxChecksPerMonitor;
    }

    [[nodiscard]] QByteArray contentOf(const char *name) const
    {
        QFile file(m_folder.path() + QString::fromUtf8(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
    Report m_report;
    Histories m_seen; ///< As of the last reading of the files.
};

TEST_P(KilledStoreTest, LosesNothingThatWasSaved)
{
    killAgainAndAgain(kills);
}

TEST_P(KilledStoreTest, LosesNothingButTheOldestOfFullHistories)
{
    fillHistories();
    readFiles();
    for (const auto &[monitorId, history] : m_seen)
        EXPECT_TRUE(isFull(history));
    killAgainAndAgain(killsWhenFull);
    EXPECT_EQ(m_seen.size(), std::size_t(monitorCount));
}

INSTANTIATE_TEST_SUITE_P(Seeds, KilledStoreTest, testing::Values(1U, 2U, 3U, 4U, 5U));

} // namespace
} // namespace ostrel
