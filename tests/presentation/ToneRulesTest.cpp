#include "ToneRules.h"

#include <gtest/gtest.h>

namespace ostrel::test {

TEST(ToneRulesTest, StatusesHaveTheirTones)
{
    EXPECT_EQ(statusTone(MonitorStatus::up), Tone::Up);
    EXPECT_EQ(statusTone(MonitorStatus::down), Tone::Down);
    EXPECT_EQ(statusTone(MonitorStatus::paused), Tone::Muted);
    EXPECT_EQ(statusTone(MonitorStatus::pending), Tone::Muted);
}

TEST(ToneRulesTest, ResponseTimesTurnAt300And1000Milliseconds)
{
    EXPECT_EQ(responseTimeTone(Milliseconds(299.9)), Tone::Up);
    EXPECT_EQ(responseTimeTone(Milliseconds(300)), Tone::Warning);
    EXPECT_EQ(responseTimeTone(Milliseconds(999.9)), Tone::Warning);
    EXPECT_EQ(responseTimeTone(Milliseconds(1000)), Tone::Down);
}

TEST(ToneRulesTest, AverageOfExactly300IsWarningAndOf1000Down)
{
    EXPECT_EQ(averageTone(Milliseconds(299.9)), Tone::Up);
    EXPECT_EQ(averageTone(Milliseconds(300)), Tone::Warning);
    EXPECT_EQ(averageTone(Milliseconds(1000)), Tone::Down);
}

TEST(ToneRulesTest, AverageOfNothingIsSecondary)
{
    EXPECT_EQ(averageTone(Milliseconds(0)), Tone::Secondary);
    EXPECT_EQ(averageTone(Milliseconds(-1)), Tone::Secondary);
}

TEST(ToneRulesTest, UptimeOfExactly99PercentIsUpAnd95Warning)
{
    EXPECT_EQ(uptimeTone(1), Tone::Up);
    EXPECT_EQ(uptimeTone(0.99), Tone::Up);
    EXPECT_EQ(uptimeTone(0.9899), Tone::Warning);
    EXPECT_EQ(uptimeTone(0.95), Tone::Warning);
    EXPECT_EQ(uptimeTone(0.9499), Tone::Down);
}

TEST(ToneRulesTest, PercentageOfExactly99IsUpAnd95Warning)
{
    EXPECT_EQ(percentageTone(99), Tone::Up);
    EXPECT_EQ(percentageTone(98.99), Tone::Warning);
    EXPECT_EQ(percentageTone(95), Tone::Warning);
    EXPECT_EQ(percentageTone(94.99), Tone::Down);
}

TEST(ToneRulesTest, CertificatesTurnAt8And31Days)
{
    EXPECT_EQ(certificateTone(-3), Tone::Down);
    EXPECT_EQ(certificateTone(7), Tone::Down);
    EXPECT_EQ(certificateTone(8), Tone::Warning);
    EXPECT_EQ(certificateTone(30), Tone::Warning);
    EXPECT_EQ(certificateTone(31), Tone::Up);
}

} // namespace ostrel::test
