#include "MonitorDetail.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class MonitorDetailTest : public testing::Test
{
protected:
    MonitorDetail detailOf(const Monitor &monitor)
    {
        return monitorDetail(m_sample.store, monitor, {m_sample.now, QTimeZone("UTC")});
    }
    static QString textOf(const Statistic &statistic)
    {
        return statistic.title + QLatin1Char('=') + statistic.value + statistic.unit;
    }

    SampleStore m_sample;
};

} // namespace

TEST_F(MonitorDetailTest, MonitorAddedAMomentAgoIsPendingAndEmpty)
{
    const auto detail = detailOf(m_sample.add(sampleMonitor()));
    EXPECT_EQ(detail.pillText, u"PENDING"_s);
    EXPECT_EQ(detail.pillSymbol, u"circle.dotted.circle"_s);
    EXPECT_EQ(detail.lastCheckedText, QString());
    EXPECT_EQ(textOf(detail.statistics[0]), u"Avg Response=--"_s);
    EXPECT_EQ(detail.statistics[0].tone, Tone::Secondary);
    EXPECT_EQ(textOf(detail.statistics[1]), u"Uptime 24h=100%"_s);
    EXPECT_EQ(textOf(detail.statistics[2]), u"Uptime 7d=100%"_s);
    EXPECT_EQ(textOf(detail.statistics[3]), u"Uptime 30d=100%"_s);
    EXPECT_FALSE(detail.hasRecentChecks);
    EXPECT_EQ(detail.recentCountText, u"0 in 24h"_s);
    EXPECT_TRUE(detail.timeline.isEmpty());
    EXPECT_TRUE(detail.badges.isEmpty());
}

TEST_F(MonitorDetailTest, TheWordsForATimeAreInTheTextsLanguage)
{
    const QLocale before;
    QLocale::setDefault(QLocale(u"de_DE"_s));
    const Monitor monitor = m_sample.add(sampleMonitor());
    m_sample.store.addCheck(upCheck(monitor, sampleNow() - 1min));
    EXPECT_EQ(detailOf(monitor).lastCheckedText, u"Last checked 1 minute ago"_s);
    QLocale::setDefault(before);
}

TEST_F(MonitorDetailTest, PausedMonitorHasTheMoonWhateverItsLastCheckWas)
{
    Monitor monitor = sampleMonitor();
    monitor.isEnabled = false;
    const Timestamp lastTime = sampleNow() - 2min;
    const std::pair<std::vector<Check>, const char *> cases[] = {
        {{}, ""},
        {{upCheck(monitor, lastTime)}, "Last checked 2 minutes ago"},
        {{downCheck(monitor, lastTime)}, "Last checked 2 minutes ago"},
    };
    for (const auto &[checks, lastCheckedText] : cases) {
        monitor.id = QUuid::createUuid();
        auto ownChecks = checks;
        for (Check &check : ownChecks)
            check.monitorId = monitor.id;
        const auto detail = detailOf(m_sample.add(monitor, ownChecks));
        EXPECT_EQ(detail.pillText, u"PAUSED"_s);
        EXPECT_EQ(detail.pillSymbol, u"moon.circle.fill"_s);
        EXPECT_EQ(detail.statusTone, Tone::Muted);
        EXPECT_EQ(detail.lastCheckedText, QLatin1String(lastCheckedText));
    }
}

TEST_F(MonitorDetailTest, StatisticsCoverTheirWindows)
{
    const Monitor monitor = sampleMonitor();
    m_sample.add(monitor, {downCheck(monitor, sampleNow() - 20 * 24h),
                           upCheck(monitor, sampleNow() - 4 * 24h, 9000),
                           downCheck(monitor, sampleNow() - 3 * 24h),
                           upCheck(monitor, sampleNow() - 2h, 200),
                           upCheck(monitor, sampleNow() - 1h, 400)});
    const auto detail = detailOf(monitor);
    EXPECT_EQ(textOf(detail.statistics[0]), u"Avg Response=300ms"_s);
    EXPECT_EQ(detail.statistics[0].tone, Tone::Warning);
    EXPECT_EQ(textOf(detail.statistics[1]), u"Uptime 24h=100%"_s);
    EXPECT_EQ(textOf(detail.statistics[2]), u"Uptime 7d=75.0%"_s);
    EXPECT_EQ(textOf(detail.statistics[3]), u"Uptime 30d=60.0%"_s);
    EXPECT_EQ(detail.statistics[3].tone, Tone::Down);
    EXPECT_EQ(detail.recentCountText, u"2 in 24h"_s);
    EXPECT_EQ(detail.series.newestText(), u"400 ms"_s);
    EXPECT_EQ(detail.timeline.bars, (std::vector{false, true, false, true, true}));
}

TEST_F(MonitorDetailTest, TimelineIsMadeFromTheNewest200Checks)
{
    const Monitor monitor = sampleMonitor();
    auto checks = upChecks(monitor, 201, sampleNow());
    checks[0].isUp = false;
    const auto detail = monitorDetail(monitor, {.history = checks}, {sampleNow()});
    EXPECT_EQ(detail.timeline.percentageText, u"100.00%"_s);
    EXPECT_EQ(detail.timeline.bars.size(), 90U);
}

TEST_F(MonitorDetailTest, ListsReachQmlAsValues)
{
    const auto detail = detailOf(m_sample.add(sampleMonitor()));
    ASSERT_EQ(detail.statisticValues().size(), 4);
    EXPECT_EQ(detail.statisticValues().at(0).value<Statistic>().title, u"Avg Response"_s);
}

} // namespace ostrel::test
