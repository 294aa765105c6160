#include "StatusMenuEntry.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel::test {

TEST(StatusMenuEntryTest, UpMonitorShowsItsTime)
{
    const Monitor monitor = sampleMonitor();
    EXPECT_EQ(statusMenuEntry(monitor, MonitorStatus::up, upCheck(monitor, sampleNow(), 1532)),
              (StatusMenuEntry{QStringLiteral("checkmark.circle.fill"), QStringLiteral("Shop"),
                               QStringLiteral("1532ms")}));
}

TEST(StatusMenuEntryTest, DownMonitorSaysSo)
{
    const Monitor monitor = sampleMonitor();
    EXPECT_EQ(statusMenuEntry(monitor, MonitorStatus::down, downCheck(monitor, sampleNow())),
              (StatusMenuEntry{QStringLiteral("xmark.circle.fill"), QStringLiteral("Shop"),
                               QStringLiteral("DOWN")}));
}

TEST(StatusMenuEntryTest, MonitorNeverCheckedHasNoTrailingText)
{
    EXPECT_EQ(
        statusMenuEntry(sampleMonitor(), MonitorStatus::pending, std::nullopt),
        (StatusMenuEntry{QStringLiteral("circle.dotted"), QStringLiteral("Shop"), QString()}));
}

TEST(StatusMenuEntryTest, PausedMonitorShowsTheTimeOfACheckThatWasUpOnly)
{
    const Monitor monitor = sampleMonitor();
    const auto paused = MonitorStatus::paused;
    const auto up = statusMenuEntry(monitor, paused, upCheck(monitor, sampleNow(), 90));
    EXPECT_EQ(up.symbol, QStringLiteral("circle.dotted"));
    EXPECT_EQ(up.trailingText, QStringLiteral("90ms"));
    EXPECT_EQ(statusMenuEntry(monitor, paused, downCheck(monitor, sampleNow())).trailingText,
              QString());
}

} // namespace ostrel::test
