#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelProgram.h"
#include "WaitFor.h"

#include <QRandomGenerator>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

// Four programs side by side, so that all two hundred kills take no longer than a coffee break.
constexpr int killsPerTest = 50;
constexpr int monitorCount = 8;

class KillTest : public testing::TestWithParam<int>
{
protected:
    KillTest()
    {
        for (int i = 0; i < monitorCount; ++i) {
            Monitor monitor = webMonitor(u"Monitor %1"_s.arg(i), server.url());
            monitor.interval = Seconds(0.1);
            monitors += monitor;
        }
        program.writeMonitors(monitors);
    }

    [[nodiscard]] std::size_t checkCount() const
    {
        std::size_t count = 0;
        for (const auto &history : program.readChecks().value_or(Histories()))
            count += history.size();
        return count;
    }

    using Histories = QHash<QUuid, std::vector<Check>>;

    HostileServer server{answerWith("OK")};
    QList<Monitor> monitors;
    OstrelProgram program;
    QRandomGenerator random{static_cast<quint32>(GetParam())};
};

/// Whether each history of @p now begins with what @p before had of it.
bool holdsAllOf(const QHash<QUuid, std::vector<Check>> &now,
                const QHash<QUuid, std::vector<Check>> &before)
{
    return std::ranges::all_of(before.keys(), [&](const QUuid &id) {
        const auto &old = before[id];
        const auto current = now.value(id);
        return current.size() >= old.size() && std::equal(old.begin(), old.end(), current.begin());
    });
}

} // namespace

TEST_P(KillTest, AKillAtAnyMomentLosesNothingThatAReaderHasSeen)
{
    for (int kill = 0; kill < killsPerTest; ++kill) {
        const std::size_t before = checkCount();
        ASSERT_TRUE(program.start()) << kill;
        ASSERT_TRUE(waitFor([&] { return checkCount() > before; })) << kill;
        QThread::usleep(random.bounded(150'000u));

        const auto seen = program.readChecks();
        ASSERT_TRUE(seen) << kill << ": a reader saw a file that doesn't load";
        program.kill();

        const auto left = program.readChecks();
        ASSERT_TRUE(left) << kill << ": checks.json doesn't load";
        ASSERT_TRUE(holdsAllOf(*left, *seen)) << kill;
        ASSERT_EQ(program.readMonitors(), monitors) << kill;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, KillTest, testing::Values(1, 2, 3, 4));

} // namespace ostrel::test
