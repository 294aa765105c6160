#include "MonitorRow.h"

#include "MonitorCard.h"
#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(row.name, QStringLiteral("Shop"));
    EXPECT_EQ(row.address, QStringLiteral("shop.example/cart"));
    EXPECT_EQ(row.status, MonitorStatus::up);
    EXPECT_EQ(row.resultText, QStringLiteral("245ms"));
    EXPECT_EQ(row.resultTone, Tone::Up);
    EXPECT_EQ(row.uptimeText, QStringLiteral("99.9%"));
    EXPECT_EQ(row.spokenText, QStringLiteral("Shop, up, 245 ms, 24-hour uptime 99.9%"));
}

TEST(MonitorRowTest, MonitorNeverCheckedShowsNoResultAndFullUptime)
{
    const auto row = monitorRow(sampleMonitor(), summaryOf(MonitorStatus::pending, {}));
    EXPECT_EQ(row.status, MonitorStatus::pending);
    EXPECT_EQ(row.resultText, QString());
    EXPECT_EQ(row.uptimeText, QStringLiteral("100%"));
    EXPECT_EQ(row.spokenText, QStringLiteral("Shop, pending, 24-hour uptime 100%"));
}

TEST(MonitorRowTest, PausedMonitorThatWasUpShowsItsLastTimeAndUptimeAndIsPaused)
{
    const Monitor monitor = sampleMonitor();
    const auto row = monitorRow(
        monitor, summaryOf(MonitorStatus::paused, upCheck(monitor, sampleNow(), 640), 0.9987));
    EXPECT_EQ(row.status, MonitorStatus::paused);
    EXPECT_EQ(row.resultText, QStringLiteral("640ms"));
    EXPECT_EQ(row.resultTone, Tone::Warning);
    EXPECT_EQ(row.uptimeText, QStringLiteral("99.9%"));
}

TEST(MonitorRowTest, PausedMonitorThatWasDownShowsATimeAndIsPaused)
{
    const Monitor monitor = sampleMonitor();
    const auto row =
        monitorRow(monitor, summaryOf(MonitorStatus::paused, downCheck(monitor, sampleNow())));
    EXPECT_EQ(row.status, MonitorStatus::paused);
    EXPECT_EQ(row.resultText, QStringLiteral("30ms"));
}

TEST(MonitorRowTest, DownMonitorShowsDownAndItsUptime)
{
    const Monitor monitor = sampleMonitor();
    const auto row =
        monitorRow(monitor, summaryOf(MonitorStatus::down, downCheck(monitor, sampleNow()), 0.792));
    EXPECT_EQ(row.resultText, QStringLiteral("DOWN"));
    EXPECT_EQ(row.resultTone, Tone::Down);
    EXPECT_EQ(row.uptimeText, QStringLiteral("79.2%"));
    EXPECT_EQ(row.spokenText, QStringLiteral("Shop, down, 24-hour uptime 79.2%"));
}

TEST(MonitorRowTest, PortMonitorsAddressIsItsHost)
{
    Monitor monitor = sampleMonitor();
    monitor.type = MonitorType::port;
    monitor.url = QStringLiteral("db.local");
    EXPECT_EQ(monitorRow(monitor, {}).address, QStringLiteral("db.local"));
}

TEST(MonitorCardTest, UpMonitorShowsTimeAndUptime)
{
    const Monitor monitor = sampleMonitor();
    EXPECT_EQ(monitorCard(summaryOf(MonitorStatus::up, upCheck(monitor, sampleNow()), 0.995)),
              (MonitorCard{
                  .responseTimeText = QStringLiteral("245 ms"),
                  .uptimeText = QStringLiteral("99.5%"),
                  .uptimeTone = Tone::Up,
              }));
}

TEST(MonitorCardTest, DownMonitorShowsOnlyItsUptime)
{
    const Monitor monitor = sampleMonitor();
    const auto card =
        monitorCard(summaryOf(MonitorStatus::down, downCheck(monitor, sampleNow()), 0.9499));
    EXPECT_EQ(card.responseTimeText, QString());
    EXPECT_EQ(card.uptimeText, QStringLiteral("95.0%"));
    EXPECT_EQ(card.uptimeTone, Tone::Down);
}

TEST(MonitorCardTest, NoChecksInADayAreFullUptime)
{
    const auto card = monitorCard(summaryOf(MonitorStatus::pending, {}));
    EXPECT_EQ(card.uptimeText, QStringLiteral("100.0%"));
    EXPECT_EQ(card.uptimeTone, Tone::Up);
    EXPECT_EQ(card.responseTimeText, QString());
}

} // namespace ostrel::test
