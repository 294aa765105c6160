#include "RelativeDate.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

struct Case
{
    const char *name;
    const char *timestamp;
    const char *text;
    const char *locale = "en_US";
    const char *timeZone = "UTC";
};

class RelativeDateTest : public testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(RelativeDateTest, NamesTheLargestUnit)
{
    const Case &c = GetParam();
    EXPECT_EQ(relativeDateText(*parseTimestamp(c.timestamp),
                               *parseTimestamp("2026-11-20T15:42:00Z"),
                               QLocale(QLatin1String(c.locale)), QTimeZone(QByteArray(c.timeZone))),
              QString::fromUtf8(c.text));
}

INSTANTIATE_TEST_SUITE_P(
    Table, RelativeDateTest,
    testing::Values(Case{"Now", "2026-11-20T15:42:00Z", "now"},
                    Case{"OneSecond", "2026-11-20T15:41:59Z", "1 second ago"},
                    Case{"NearlyAMinute", "2026-11-20T15:41:01Z", "59 seconds ago"},
                    Case{"AMinute", "2026-11-20T15:41:00Z", "1 minute ago"},
                    Case{"TwoMinutesAndMore", "2026-11-20T15:39:01Z", "2 minutes ago"},
                    Case{"NearlyAnHour", "2026-11-20T14:42:01Z", "59 minutes ago"},
                    Case{"AnHour", "2026-11-20T14:42:00Z", "1 hour ago"},
                    Case{"NearlyADay", "2026-11-19T15:42:01Z", "23 hours ago"},
                    Case{"ADay", "2026-11-19T15:42:00Z", "yesterday"},
                    Case{"TwoDays", "2026-11-18T15:42:00Z", "2 days ago"},
                    Case{"NearlyAWeek", "2026-11-13T15:42:01Z", "6 days ago"},
                    Case{"AWeek", "2026-11-13T15:42:00Z", "last week"},
                    Case{"ThreeWeeks", "2026-10-27T15:42:00Z", "3 weeks ago"},
                    Case{"NearlyAMonth", "2026-10-20T15:42:01Z", "4 weeks ago"},
                    Case{"AMonth", "2026-10-20T15:42:00Z", "last month"},
                    Case{"FiveMonths", "2026-06-01T00:00:00Z", "5 months ago"},
                    Case{"NearlyAYear", "2025-11-20T15:42:01Z", "11 months ago"},
                    Case{"AYear", "2025-11-20T15:42:00Z", "last year"},
                    Case{"ThreeYears", "2023-11-01T00:00:00Z", "3 years ago"},
                    Case{"ClockWasSetBack", "2026-11-20T18:42:00Z", "in 3 hours"},
                    Case{"Tomorrow", "2026-11-21T15:42:00Z", "tomorrow"},
                    Case{"German", "2026-11-18T15:42:00Z", "vorgestern", "de_DE"},
                    Case{"GermanMinutes", "2026-11-20T15:40:00Z", "vor 2 Minuten", "de_DE"},
                    Case{"Posix", "2026-11-20T15:40:00Z", "2 minutes ago", "C"},
                    // Clocks went back on 25 October 2026 in Berlin.
                    Case{"LongDay", "2026-10-20T14:42:00Z", "last month", "en_US",
                         "Europe/Berlin"}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
