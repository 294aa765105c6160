#include "ResponseSeries.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

} // namespace

TEST(ResponseSeriesTest, NoChecksWaitForDataWithoutAValue)
{
    const auto series = responseSeries({});
    EXPECT_FALSE(series.isPlottable());
    EXPECT_EQ(series.newestText(), QString());
    EXPECT_EQ(series.spokenText(), u"Response Time: waiting for data"_s);
}

TEST(ResponseSeriesTest, OnlyFailedChecksWaitForDataWithoutAValue)
{
    const Monitor monitor = sampleMonitor();
    const std::vector checks = {downCheck(monitor, sampleNow()), downCheck(monitor, sampleNow())};
    EXPECT_FALSE(responseSeries(checks).isPlottable());
    EXPECT_EQ(responseSeries(checks).newestText(), QString());
}

TEST(ResponseSeriesTest, OneCheckWaitsForDataWithItsValue)
{
    const std::vector checks = {upCheck(sampleMonitor(), sampleNow(), 245.2)};
    EXPECT_FALSE(responseSeries(checks).isPlottable());
    EXPECT_EQ(responseSeries(checks).newestText(), u"245 ms"_s);
}

TEST(ResponseSeriesTest, TwoChecksArePlottedWithBothPoints)
{
    const auto series = responseSeries(upChecks(sampleMonitor(), 2, sampleNow()));
    EXPECT_TRUE(series.isPlottable());
    EXPECT_TRUE(series.hasMarks());
}

TEST(ResponseSeriesTest, FortyChecksHaveMarksAndFortyOneNot)
{
    EXPECT_TRUE(responseSeries(upChecks(sampleMonitor(), 40, sampleNow())).hasMarks());
    EXPECT_FALSE(responseSeries(upChecks(sampleMonitor(), 41, sampleNow())).hasMarks());
}

TEST(ResponseSeriesTest, ChecksOutOfOrderArePlottedInTimeOrder)
{
    const Monitor monitor = sampleMonitor();
    const std::vector checks = {upCheck(monitor, sampleNow(), 3),
                                upCheck(monitor, sampleNow() - 2min, 1),
                                upCheck(monitor, sampleNow() - 1min, 2)};
    const auto series = responseSeries(checks);
    EXPECT_TRUE(std::ranges::is_sorted(series.points, {}, &ResponseSeries::Point::responseTime));
    EXPECT_EQ(series.newestText(), u"3 ms"_s);
}

TEST(ResponseSeriesTest, FailedCheckDoesNotInterruptTheLine)
{
    const Monitor monitor = sampleMonitor();
    const std::vector checks = {upCheck(monitor, sampleNow() - 2min, 1),
                                downCheck(monitor, sampleNow() - 1min),
                                upCheck(monitor, sampleNow(), 3)};
    EXPECT_EQ(responseSeries(checks).points,
              (std::vector<ResponseSeries::Point>{{sampleNow() - 2min, 1}, {sampleNow(), 3}}));
}

TEST(ResponseSeriesTest, IsSpokenAsOneSentence)
{
    const Monitor monitor = sampleMonitor();
    const std::vector checks = {upCheck(monitor, sampleNow() - 2min, 100),
                                upCheck(monitor, sampleNow() - 1min, 400),
                                upCheck(monitor, sampleNow(), 220)};
    EXPECT_EQ(responseSeries(checks).spokenText(),
              u"Response Time: newest 220 ms, lowest 100 ms, highest 400 ms, "
              "average 240 ms"_s);
}

} // namespace ostrel::test
