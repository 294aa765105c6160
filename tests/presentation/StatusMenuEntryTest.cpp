#include "StatusMenuEntry.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

TEST(StatusMenuEntryTest, UpMonitorShowsItsTime)
{
    const Monitor monitor = sampleMonitor();
    EXPECT_EQ(statusMenuEntry(monitor, MonitorStatus::up, upCheck(monitor, sampleNow(), 1532)),
              (StatusMenuEntry{u"checkmark.circle.fill"_s, u"Shop"_s, u"1532ms"_s}));
}

TEST(StatusMenuEntryTest, DownMonitorShowsDown)
{
    const Monitor monitor = sampleMonitor();
    EXPECT_EQ(statusMenuEntry(monitor, MonitorStatus::down, downCheck(monitor, sampleNow())),
              (StatusMenuEntry{u"xmark.circle.fill"_s, u"Shop"_s, u"DOWN"_s}));
}

TEST(StatusMenuEntryTest, MonitorNeverCheckedHasNoTrailingText)
{
    EXPECT_EQ(statusMenuEntry(sampleMonitor(), MonitorStatus::pending, std::nullopt),
              (StatusMenuEntry{u"circle.dotted"_s, u"Shop"_s, QString()}));
}

TEST(StatusMenuEntryTest, PausedMonitorShowsTheTimeOfACheckThatWasUpOnly)
{
    const Monitor monitor = sampleMonitor();
    const auto paused = MonitorStatus::paused;
    const auto up = statusMenuEntry(monitor, paused, upCheck(monitor, sampleNow(), 90));
    EXPECT_EQ(up.symbol, u"circle.dotted"_s);
    EXPECT_EQ(up.trailingText, u"90ms"_s);
    EXPECT_EQ(statusMenuEntry(monitor, paused, downCheck(monitor, sampleNow())).trailingText,
              QString());
}

} // namespace ostrel::test
