#include "StatusBanner.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class StatusBannerTest : public testing::Test
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

TEST_F(StatusBannerTest, AllUpIsAllSystemsOperational)
{
    addUp();
    addUp();
    EXPECT_EQ(banner().headline, QStringLiteral("All Systems Operational"));
    EXPECT_EQ(banner().symbol, QStringLiteral("checkmark.circle.fill"));
    EXPECT_EQ(banner().tone, Tone::Up);
    EXPECT_EQ(banner().countLine, QStringLiteral("2 of 2 monitors up"));
}

TEST_F(StatusBannerTest, OneDownAmongManyIsIssuesDetected)
{
    addUp();
    addDown();
    m_sample.add(sampleMonitor());
    EXPECT_EQ(banner().headline, QStringLiteral("Issues Detected"));
    EXPECT_EQ(banner().symbol, QStringLiteral("exclamationmark.triangle.fill"));
    EXPECT_EQ(banner().tone, Tone::Down);
    EXPECT_EQ(banner().countLine, QStringLiteral("1 of 3 monitors up"));
}

TEST_F(StatusBannerTest, OneWithoutACheckIsChecking)
{
    addUp();
    m_sample.add(sampleMonitor());
    EXPECT_EQ(banner().headline, QStringLiteral("Checking..."));
    EXPECT_EQ(banner().symbol, QStringLiteral("circle.dotted.circle"));
    EXPECT_EQ(banner().tone, Tone::Muted);
}

TEST_F(StatusBannerTest, PausedMonitorCountsOnlyInTheTotal)
{
    addUp();
    addUp();
    pause(addUp());
    EXPECT_EQ(banner().headline, QStringLiteral("All Systems Operational"));
    EXPECT_EQ(banner().countLine, QStringLiteral("2 of 3 monitors up"));
}

TEST_F(StatusBannerTest, AllPausedIsChecking)
{
    pause(addUp());
    pause(addUp());
    EXPECT_EQ(banner().headline, QStringLiteral("Checking..."));
    EXPECT_EQ(banner().symbol, QStringLiteral("circle.dotted.circle"));
    EXPECT_EQ(banner().countLine, QStringLiteral("0 of 2 monitors up"));
}

TEST_F(StatusBannerTest, PausedMonitorThatWasDownIsNoIssue)
{
    addUp();
    pause(addDown());
    EXPECT_EQ(banner().headline, QStringLiteral("All Systems Operational"));
}

TEST_F(StatusBannerTest, NoMonitorsArePending)
{
    EXPECT_EQ(banner().headline, QStringLiteral("Checking..."));
    EXPECT_EQ(banner().countLine, QStringLiteral("0 of 0 monitors up"));
}

} // namespace ostrel::test
