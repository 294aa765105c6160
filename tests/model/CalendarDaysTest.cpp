#include "CalendarDays.h"

#include "ScopedTimeZone.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

struct Case
{
    const char *name;
    const char *from;
    const char *to;
    const char *timeZone;
    qint64 days;
};

class CalendarDaysTest : public testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(CalendarDaysTest, CountsWholeCalendarDays)
{
    const Case &c = GetParam();
    EXPECT_EQ(wholeDaysBetween(*parseTimestamp(c.from), *parseTimestamp(c.to),
                               QTimeZone(QByteArray(c.timeZone))),
              c.days);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CalendarDaysTest,
    testing::Values(
        Case{"ExactlyADay", "2026-01-10T10:00:00Z", "2026-01-11T10:00:00Z", "UTC", 1},
        Case{"ASecondLess", "2026-01-10T10:00:00Z", "2026-01-11T09:59:59Z", "UTC", 0},
        Case{"ASecondMore", "2026-01-10T10:00:00Z", "2026-01-11T10:00:01Z", "UTC", 1},
        Case{"Fourteen", "2026-01-10T10:00:00Z", "2026-01-24T10:00:00Z", "UTC", 14},
        Case{"Now", "2026-01-10T10:00:00Z", "2026-01-10T10:00:00Z", "UTC", 0},
        Case{"ExpiredAnHourAgo", "2026-01-10T10:00:00Z", "2026-01-10T09:00:00Z", "UTC", 0},
        Case{"ExpiredTwoDaysAgo", "2026-01-10T10:00:00Z", "2026-01-08T10:00:00Z", "UTC", -2},
        Case{"ExpiredNearlyTwoDaysAgo", "2026-01-10T10:00:00Z", "2026-01-08T10:00:01Z", "UTC", -1},
        Case{"ExpiredOverTwoDaysAgo", "2026-01-10T10:00:00Z", "2026-01-08T09:00:00Z", "UTC", -2},
        // Clocks go forward on 29 March 2026 in Berlin: that day has 23 hours.
        Case{"ShortDay", "2026-03-28T11:00:00Z", "2026-03-29T10:00:00Z", "Europe/Berlin", 1},
        Case{"ShortDayInUtc", "2026-03-28T11:00:00Z", "2026-03-29T10:00:00Z", "UTC", 0},
        // They go back on 25 October, which has 25 hours.
        Case{"LongDay", "2026-10-24T10:00:00Z", "2026-10-25T10:59:59Z", "Europe/Berlin", 0},
        Case{"FarFuture", "2026-01-01T00:00:00Z", "9999-12-31T23:59:59Z", "UTC", 2912442}),
    [](const auto &each) { return std::string(each.param.name); });

struct SystemZoneCase
{
    const char *name;
    const char *environment; ///< TZ
    const char *from;
    const char *to;
    qint64 days;
};

void PrintTo(const SystemZoneCase &sample, std::ostream *out)
{
    *out << sample.name;
}

class CalendarDaysOfSystemTest : public testing::TestWithParam<SystemZoneCase>
{
};

TEST_P(CalendarDaysOfSystemTest, CountsForAnyTimeZoneNameOfTheEnvironment)
{
    const SystemZoneCase &c = GetParam();
    const ScopedTimeZone zone(c.environment);
    EXPECT_EQ(wholeDaysBetween(*parseTimestamp(c.from), *parseTimestamp(c.to)), c.days);
}

constexpr auto winter = "2026-01-10T10:00:00Z";
constexpr auto twoWeeksOn = "2026-01-24T10:00:00Z";

INSTANTIATE_TEST_SUITE_P(
    Table, CalendarDaysOfSystemTest,
    testing::Values(SystemZoneCase{"Name", "Europe/Berlin", winter, twoWeeksOn, 14},
                    SystemZoneCase{"PathWithColon", ":/usr/share/zoneinfo/Europe/Berlin", winter,
                                   twoWeeksOn, 14},
                    SystemZoneCase{"Path", "/usr/share/zoneinfo/Europe/Berlin", winter, twoWeeksOn,
                                   14},
                    SystemZoneCase{"ShortDayByPath", "/usr/share/zoneinfo/Europe/Berlin",
                                   "2026-03-28T11:00:00Z", "2026-03-29T10:00:00Z", 1},
                    SystemZoneCase{"ShortDayByRule", "CET-1CEST,M3.5.0,M10.5.0/3",
                                   "2026-03-28T11:00:00Z", "2026-03-29T10:00:00Z", 1},
                    SystemZoneCase{"RuleWithoutDates", "MEZ-1MESZ", winter, twoWeeksOn, 14},
                    SystemZoneCase{"RuleWithoutDatesExpired", "MEZ-1MESZ", twoWeeksOn, winter, -14},
                    SystemZoneCase{"Nonsense", "Nowhere/At All", winter, twoWeeksOn, 14},
                    SystemZoneCase{"MissingFile", "/nowhere", winter, twoWeeksOn, 14},
                    SystemZoneCase{"Empty", "", winter, twoWeeksOn, 14},
                    SystemZoneCase{"FarFuture", "MEZ-1MESZ", "2026-01-01T00:00:00Z",
                                   "9999-12-31T23:59:59Z", 2912442}),
    [](const auto &each) { return std::string(each.param.name); });

} // namespace ostrel::test
