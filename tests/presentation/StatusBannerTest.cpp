#include "StatusBanner.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
    EXPECT_EQ(banner().headline, u"All Systems Operational"_s);
    EXPECT_EQ(banner().symbol, u"checkmark.circle.fill"_s);
    EXPECT_EQ(banner().tone, Tone::Up);
    EXPECT_EQ(banner().countLine, u"2 of 2 monitors up"_s);
}

TEST_F(StatusBannerTest, OneDownAmongManyIsIssuesDetected)
{
    addUp();
    addDown();
    m_sample.add(sampleMonitor());
    EXPECT_EQ(banner().headline, u"Issues Detected"_s);
    EXPECT_EQ(banner().symbol, u"exclamationmark.triangle.fill"_s);
    EXPECT_EQ(banner().tone, Tone::Down);
    EXPECT_EQ(banner().countLine, u"1 of 3 monitors up"_s);
}

TEST_F(StatusBannerTest, OneWithoutACheckIsChecking)
{
    addUp();
    m_sample.add(sampleMonitor());
    EXPECT_EQ(banner().headline, u"Checking..."_s);
    EXPECT_EQ(banner().symbol, u"circle.dotted.circle"_s);
    EXPECT_EQ(banner().tone, Tone::Muted);
}

TEST_F(StatusBannerTest, PausedMonitorCountsOnlyInTheTotal)
{
    addUp();
    addUp();
    pause(addUp());
    EXPECT_EQ(banner().headline, u"All Systems Operational"_s);
    EXPECT_EQ(banner().countLine, u"2 of 3 monitors up"_s);
}

TEST_F(StatusBannerTest, AllPausedIsChecking)
{
    pause(addUp());
    pause(addUp());
    EXPECT_EQ(banner().headline, u"Checking..."_s);
    EXPECT_EQ(banner().symbol, u"circle.dotted.circle"_s);
    EXPECT_EQ(banner().countLine, u"0 of 2 monitors up"_s);
}

TEST_F(StatusBannerTest, PausedMonitorThatWasDownIsNoIssue)
{
    addUp();
    pause(addDown());
    EXPECT_EQ(banner().headline, u"All Systems Operational"_s);
}

TEST_F(StatusBannerTest, NoMonitorsArePending)
{
    EXPECT_EQ(banner().headline, u"Checking..."_s);
    EXPECT_EQ(banner().countLine, u"0 of 0 monitors up"_s);
}

} // namespace ostrel::test
