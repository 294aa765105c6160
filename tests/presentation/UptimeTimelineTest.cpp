#include "UptimeTimeline.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

/// @p count checks a minute apart, all up but those at the indices in @p down.
std::vector<Check> history(int count, const std::vector<std::size_t> &down = {})
{
    const Monitor monitor = sampleMonitor();
    auto checks = upChecks(monitor, count, sampleNow());
    for (const std::size_t index : down)
        checks[index].isUp = false;
    return checks;
}

UptimeTimeline timelineOf(const std::vector<Check> &checks)
{
    return uptimeTimeline(checks, sampleNow());
}

struct AgeCase
{
    const char *name;
    std::chrono::minutes age;
    const char *text;
};

class AgeTextTest : public testing::TestWithParam<AgeCase>
{
};

} // namespace

TEST(UptimeTimelineTest, NoChecksAreNoData)
{
    const auto timeline = timelineOf({});
    EXPECT_TRUE(timeline.isEmpty());
    EXPECT_EQ(timeline.percentageText, QString());
    EXPECT_EQ(timeline.ageText, u"No data"_s);
    EXPECT_EQ(timeline.spokenText, u"Uptime: No data"_s);
}

TEST(UptimeTimelineTest, OneUpCheckTenMinutesAgo)
{
    const Monitor monitor = sampleMonitor();
    const auto timeline = timelineOf({upCheck(monitor, sampleNow() - 10min)});
    EXPECT_EQ(timeline.bars, std::vector{true});
    EXPECT_EQ(timeline.percentageText, u"100.00%"_s);
    EXPECT_EQ(timeline.percentageTone, Tone::Up);
    EXPECT_EQ(timeline.ageText, u"< 1 hour ago"_s);
}

TEST(UptimeTimelineTest, NinetyChecksAreNinetyBars)
{
    const auto timeline = timelineOf(history(90, {89}));
    EXPECT_EQ(timeline.bars.size(), 90U);
    EXPECT_FALSE(timeline.bars.back());
}

TEST(UptimeTimelineTest, NinetyOneChecksLeaveOutTheNewest)
{
    const auto timeline = timelineOf(history(91, {90}));
    EXPECT_EQ(timeline.bars, std::vector<bool>(90, true));
    EXPECT_EQ(timeline.percentageText, u"98.90%"_s);
}

TEST(UptimeTimelineTest, SamplesAreSingleChecks)
{
    const auto indices = sampledIndices(270);
    ASSERT_EQ(indices.size(), 90U);
    EXPECT_EQ(indices[1], 3U);
    EXPECT_EQ(indices.back(), 267U);
    EXPECT_EQ(sampledIndices(180).back(), 178U);
    EXPECT_EQ(sampledIndices(179).back(), 89U);
    EXPECT_EQ(sampledIndices(200).back(), 178U);
}

TEST(UptimeTimelineTest, DownCheckBetweenSamplesLeavesNoBar)
{
    const auto timeline = timelineOf(history(270, {1, 2, 6}));
    EXPECT_EQ(std::ranges::count(timeline.bars, false), 1);
    EXPECT_FALSE(timeline.bars[2]);
    EXPECT_EQ(timeline.percentageText, u"98.89%"_s);
}

TEST(UptimeTimelineTest, ChecksAreSortedByTime)
{
    auto checks = history(3, {0});
    std::ranges::reverse(checks);
    EXPECT_EQ(timelineOf(checks).bars, (std::vector{false, true, true}));
}

TEST(UptimeTimelineTest, PercentageIsTonedByItsThresholds)
{
    EXPECT_EQ(timelineOf(history(100, {5})).percentageText, u"99.00%"_s);
    EXPECT_EQ(timelineOf(history(100, {5})).percentageTone, Tone::Up);
    EXPECT_EQ(timelineOf(history(100, {1, 2, 3, 4, 5})).percentageTone, Tone::Warning);
    EXPECT_EQ(timelineOf(history(100, {1, 2, 3, 4, 5, 6})).percentageTone, Tone::Down);
}

TEST(UptimeTimelineTest, IsSpokenAsOneSentence)
{
    EXPECT_EQ(timelineOf(history(200, {7})).spokenText,
              u"Uptime 99.50%, checks: 200, failed: 1, oldest: 3h ago"_s);
}

TEST_P(AgeTextTest, IsInWholeHoursOrDays)
{
    const auto &c = GetParam();
    EXPECT_EQ(ageText(sampleNow() - c.age, sampleNow()), QLatin1String(c.text));
}

INSTANTIATE_TEST_SUITE_P(Table, AgeTextTest,
                         testing::Values(AgeCase{"InTheFuture", -90min, "< 1 hour ago"},
                                         AgeCase{"NearlyAnHour", 59min, "< 1 hour ago"},
                                         AgeCase{"AnHour", 60min, "1h ago"},
                                         AgeCase{"NearlyADay", 23h + 59min, "23h ago"},
                                         AgeCase{"ADay", 24h, "1d ago"},
                                         AgeCase{"NearlyTwoDays", 47h + 59min, "1d ago"},
                                         AgeCase{"ThreeDays", 72h, "3d ago"}),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
