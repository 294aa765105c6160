#include "MonitorRow.h"

#include "MonitorCard.h"
#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

MonitorSummary summaryOf(MonitorStatus status, const std::optional<Check> &latest,
                         double uptime = 1)
{
    return {status, latest, uptime};
}

} // namespace

TEST(MonitorRowTest, UpMonitorShowsTimeAndUptime)
{
    const Monitor monitor = sampleMonitor();
    const auto row =
        monitorRow(monitor, summaryOf(MonitorStatus::up, upCheck(monitor, sampleNow()), 0.9987));
    EXPECT_EQ(row.name, u"Shop"_s);
    EXPECT_EQ(row.address, u"shop.example/cart"_s);
    EXPECT_EQ(row.status, MonitorStatus::up);
    EXPECT_EQ(row.resultText, u"245ms"_s);
    EXPECT_EQ(row.resultTone, Tone::Up);
    EXPECT_EQ(row.uptimeText, u"99.9%"_s);
    EXPECT_EQ(row.spokenText, u"Shop, up, 245 ms, 24-hour uptime 99.9%"_s);
}

TEST(MonitorRowTest, MonitorNeverCheckedShowsNoResultAndFullUptime)
{
    const auto row = monitorRow(sampleMonitor(), summaryOf(MonitorStatus::pending, {}));
    EXPECT_EQ(row.status, MonitorStatus::pending);
    EXPECT_EQ(row.resultText, QString());
    EXPECT_EQ(row.uptimeText, u"100%"_s);
    EXPECT_EQ(row.spokenText, u"Shop, pending, 24-hour uptime 100%"_s);
}

TEST(MonitorRowTest, PausedMonitorThatWasUpShowsItsLastTimeAndUptimeAndIsPaused)
{
    const Monitor monitor = sampleMonitor();
    const auto row = monitorRow(
        monitor, summaryOf(MonitorStatus::paused, upCheck(monitor, sampleNow(), 640), 0.9987));
    EXPECT_EQ(row.status, MonitorStatus::paused);
    EXPECT_EQ(row.resultText, u"640ms"_s);
    EXPECT_EQ(row.resultTone, Tone::Warning);
    EXPECT_EQ(row.uptimeText, u"99.9%"_s);
}

TEST(MonitorRowTest, PausedMonitorThatWasDownShowsATimeAndIsPaused)
{
    const Monitor monitor = sampleMonitor();
    const auto row =
        monitorRow(monitor, summaryOf(MonitorStatus::paused, downCheck(monitor, sampleNow())));
    EXPECT_EQ(row.status, MonitorStatus::paused);
    EXPECT_EQ(row.resultText, u"30ms"_s);
}

TEST(MonitorRowTest, DownMonitorShowsDownAndItsUptime)
{
    const Monitor monitor = sampleMonitor();
    const auto row =
        monitorRow(monitor, summaryOf(MonitorStatus::down, downCheck(monitor, sampleNow()), 0.792));
    EXPECT_EQ(row.resultText, u"DOWN"_s);
    EXPECT_EQ(row.resultTone, Tone::Down);
    EXPECT_EQ(row.uptimeText, u"79.2%"_s);
    EXPECT_EQ(row.spokenText, u"Shop, down, 24-hour uptime 79.2%"_s);
}

TEST(MonitorRowTest, PortMonitorsAddressIsItsHost)
{
    Monitor monitor = sampleMonitor();
    monitor.type = MonitorType::port;
    monitor.url = u"db.local"_s;
    EXPECT_EQ(monitorRow(monitor, {}).address, u"db.local"_s);
}

TEST(MonitorCardTest, UpMonitorShowsTimeAndUptime)
{
    const Monitor monitor = sampleMonitor();
    EXPECT_EQ(monitorCard(summaryOf(MonitorStatus::up, upCheck(monitor, sampleNow()), 0.995)),
              (MonitorCard{
                  .responseTimeText = u"245 ms"_s,
                  .uptimeText = u"99.5%"_s,
                  .uptimeTone = Tone::Up,
              }));
}

TEST(MonitorCardTest, DownMonitorShowsOnlyItsUptime)
{
    const Monitor monitor = sampleMonitor();
    const auto card =
        monitorCard(summaryOf(MonitorStatus::down, downCheck(monitor, sampleNow()), 0.9499));
    EXPECT_EQ(card.responseTimeText, QString());
    EXPECT_EQ(card.uptimeText, u"95.0%"_s);
    EXPECT_EQ(card.uptimeTone, Tone::Down);
}

TEST(MonitorCardTest, NoChecksInADayAreFullUptime)
{
    const auto card = monitorCard(summaryOf(MonitorStatus::pending, {}));
    EXPECT_EQ(card.uptimeText, u"100.0%"_s);
    EXPECT_EQ(card.uptimeTone, Tone::Up);
    EXPECT_EQ(card.responseTimeText, QString());
}

} // namespace ostrel::test
