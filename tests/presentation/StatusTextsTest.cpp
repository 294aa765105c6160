#include "StatusTexts.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class StatusTextsTest : public testing::Test
{
protected:
    Monitor addUp() { return addWith(upCheck); }
    Monitor addDown()
    {
        return addWith([](const Monitor &monitor, Timestamp timestamp, double) {
            return downCheck(monitor, timestamp);
        });
    }
    void pause(Monitor monitor)
    {
        monitor.isEnabled = false;
        store().updateMonitor(monitor);
    }
    MonitorStore &store() { return m_sample.store; }
    StatusBanner banner() { return statusBanner(store()); }

    SampleStore m_sample;

private:
    template<typename MakeCheck>
    Monitor addWith(MakeCheck makeCheck)
    {
        const Monitor monitor = sampleMonitor();
        return m_sample.add(monitor, {makeCheck(monitor, sampleNow() - 1min, 245)});
    }
};

} // namespace

TEST_F(StatusTextsTest, AllUpIsAllSystemsOperational)
{
    addUp();
    addUp();
    EXPECT_EQ(banner().headline, QStringLiteral("All Systems Operational"));
    EXPECT_EQ(banner().symbol, QStringLiteral("checkmark.circle.fill"));
    EXPECT_EQ(banner().tone, Tone::Up);
    EXPECT_EQ(banner().countLine, QStringLiteral("2 of 2 monitors up"));
}

TEST_F(StatusTextsTest, OneDownAmongManyIsIssuesDetected)
{
    addUp();
    addDown();
    m_sample.add(sampleMonitor());
    EXPECT_EQ(banner().headline, QStringLiteral("Issues Detected"));
    EXPECT_EQ(banner().symbol, QStringLiteral("exclamationmark.triangle.fill"));
    EXPECT_EQ(banner().tone, Tone::Down);
    EXPECT_EQ(banner().countLine, QStringLiteral("1 of 3 monitors up"));
}

TEST_F(StatusTextsTest, OneWithoutACheckIsChecking)
{
    addUp();
    m_sample.add(sampleMonitor());
    EXPECT_EQ(banner().headline, QStringLiteral("Checking..."));
    EXPECT_EQ(banner().symbol, QStringLiteral("circle.dotted.circle"));
    EXPECT_EQ(banner().tone, Tone::Muted);
}

TEST_F(StatusTextsTest, PausedMonitorCountsOnlyInTheTotal)
{
    addUp();
    addUp();
    pause(addUp());
    EXPECT_EQ(banner().headline, QStringLiteral("All Systems Operational"));
    EXPECT_EQ(banner().countLine, QStringLiteral("2 of 3 monitors up"));
}

TEST_F(StatusTextsTest, AllPausedIsChecking)
{
    pause(addUp());
    pause(addUp());
    EXPECT_EQ(banner().headline, QStringLiteral("Checking..."));
    EXPECT_EQ(banner().symbol, QStringLiteral("circle.dotted.circle"));
    EXPECT_EQ(banner().countLine, QStringLiteral("0 of 2 monitors up"));
}

TEST_F(StatusTextsTest, PausedMonitorThatWasDownIsNoIssue)
{
    addUp();
    pause(addDown());
    EXPECT_EQ(banner().headline, QStringLiteral("All Systems Operational"));
}

TEST_F(StatusTextsTest, NoMonitorsArePending)
{
    EXPECT_EQ(banner().headline, QStringLiteral("Checking..."));
    EXPECT_EQ(banner().countLine, QStringLiteral("0 of 0 monitors up"));
    EXPECT_FALSE(isAnythingDown(store()));
}

TEST_F(StatusTextsTest, OneEnabledMonitorDownIsAnythingDown)
{
    addUp();
    EXPECT_FALSE(isAnythingDown(store()));
    const Monitor down = addDown();
    EXPECT_TRUE(isAnythingDown(store()));
    store().addCheck(upCheck(down, sampleNow()));
    EXPECT_FALSE(isAnythingDown(store()));
}

TEST_F(StatusTextsTest, PausedMonitorThatWasDownIsNothingDown)
{
    pause(addDown());
    EXPECT_FALSE(isAnythingDown(store()));
}

TEST(PillTest, WordsAreCapitals)
{
    EXPECT_EQ(pillWord(MonitorStatus::up), QStringLiteral("UP"));
    EXPECT_EQ(pillWord(MonitorStatus::down), QStringLiteral("DOWN"));
    EXPECT_EQ(pillWord(MonitorStatus::paused), QStringLiteral("PAUSED"));
    EXPECT_EQ(pillWord(MonitorStatus::pending), QStringLiteral("PENDING"));
}

TEST(PillTest, PausedHasTheMoon)
{
    EXPECT_EQ(statusSymbol(MonitorStatus::paused), QStringLiteral("moon.circle.fill"));
}

TEST(StatusMenuTest, UpMonitorShowsItsTime)
{
    const Monitor monitor = sampleMonitor();
    EXPECT_EQ(statusMenuEntry(monitor, MonitorStatus::up, upCheck(monitor, sampleNow(), 1532)),
              (StatusMenuEntry{QStringLiteral("checkmark.circle.fill"), QStringLiteral("Shop"),
                               QStringLiteral("1532ms")}));
}

TEST(StatusMenuTest, DownMonitorSaysSo)
{
    const Monitor monitor = sampleMonitor();
    EXPECT_EQ(statusMenuEntry(monitor, MonitorStatus::down, downCheck(monitor, sampleNow())),
              (StatusMenuEntry{QStringLiteral("xmark.circle.fill"), QStringLiteral("Shop"),
                               QStringLiteral("DOWN")}));
}

TEST(StatusMenuTest, MonitorNeverCheckedHasNoTrailingText)
{
    EXPECT_EQ(
        statusMenuEntry(sampleMonitor(), MonitorStatus::pending, std::nullopt),
        (StatusMenuEntry{QStringLiteral("circle.dotted"), QStringLiteral("Shop"), QString()}));
}

TEST(StatusMenuTest, PausedMonitorShowsTheTimeOfACheckThatWasUpOnly)
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
