#include "CheckJson.h"
#include "MonitorJson.h"
#include "MonitorStore.h"
#include "Printers.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <random>

namespace ostrel {
namespace {

constexpr int monitorCount = 3;
constexpr int killsPerTest = 40;

class IgnoringVisitor : public CheckMapVisitor
{
public:
    void openHistory(const QUuid & /*monitorId*/) override {}
    void takeCheck(Check && /*check*/, std::string_view /*stored*/) override {}
};

/// What a recorder has said to be saved, over all its lives.
struct Report
{
    std::map<QUuid, std::vector<QUuid>> checks;
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
    /// Lets a recorder run for some random moments after its first line, and kills it.
    void runAndKill(std::chrono::microseconds life)
    {
        QProcess recorder;
        recorder.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        recorder.start(QStringLiteral(CHECK_RECORDER), {m_folder.path()});
        ASSERT_TRUE(recorder.waitForReadyRead());
        const auto end = std::chrono::steady_clock::now() + life;
        while (std::chrono::steady_clock::now() < end)
            expectWholeFiles();
        recorder.kill();
        ASSERT_TRUE(recorder.waitForFinished());
        while (recorder.canReadLine())
            m_report.take(recorder.readLine());
    }

    void expectWholeFiles() const
    {
        EXPECT_TRUE(decodeMonitors(contentOf("/monitors.json")));
        // Not written before the first check.
        IgnoringVisitor visitor;
        const QByteArray checks = contentOf("/checks.json");
        EXPECT_TRUE(checks.isNull() || decodeCheckMap(checks, visitor));
    }

    void expectNothingLost() const
    {
        const MonitorStore store(m_folder.path(), MonitorStore::Access::readOnly);
        ASSERT_EQ(store.monitors().size(), monitorCount);
        EXPECT_GE(store.monitors().first().name.toInt(), m_report.lastEdit);
        for (const auto &[monitorId, reported] : m_report.checks)
            expectEnding(store.checks(monitorId), reported);
    }

    /// What was reported ends the history, but for what was saved after the last report.
    static void expectEnding(std::span<const Check> history, std::span<const QUuid> reported)
    {
        const auto last = std::ranges::find(history, reported.back(), &Check::id);
        ASSERT_NE(last, history.end());
        const auto kept = static_cast<std::size_t>(last - history.begin()) + 1;
        ASSERT_TRUE(kept >= reported.size() || history.size() == MonitorStore::maxChecksPerMonitor);
        auto check = last;
        for (auto id = reported.rbegin(); id != reported.rend(); ++id) {
            // Of a life's end, a check may be saved and not reported.
            while (check->id != *id) {
                if (check == history.begin())
                    return expectFull(history);
                --check;
            }
        }
    }

    static void expectFull(std::span<const Check> history)
    {
        EXPECT_EQ(history.size(), MonitorStore::maxChecksPerMonitor);
    }

    [[nodiscard]] QByteArray contentOf(const char *name) const
    {
        QFile file(m_folder.path() + QString::fromUtf8(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
    Report m_report;
};

TEST_P(KilledStoreTest, LosesNothingThatWasSaved)
{
    std::minstd_rand random(GetParam());
    for (int i = 0; i < killsPerTest && !HasFailure(); ++i) {
        runAndKill(std::chrono::microseconds(std::uniform_int_distribution(0, 40'000)(random)));
        expectWholeFiles();
        expectNothingLost();
    }
    EXPECT_GT(m_report.lastEdit, 0);
    EXPECT_EQ(m_report.checks.size(), std::size_t(monitorCount));
}

INSTANTIATE_TEST_SUITE_P(Seeds, KilledStoreTest, testing::Values(1U, 2U, 3U, 4U, 5U));

} // namespace
} // namespace ostrel
