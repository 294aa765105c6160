#include "Printers.h"
#include "TimeAxis.h"
#include "ValueAxis.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <string>

namespace ostrel {

static void PrintTo(const ValueAxis &axis, std::ostream *out)
{
    *out << axis.steps << " steps of " << axis.step;
}

} // namespace ostrel

namespace ostrel::test {

namespace {

struct ValueCase
{
    const char *name;
    double maximum;
    ValueAxis axis;
};

class ValueAxisTest : public testing::TestWithParam<ValueCase>
{
};

struct TimeCase
{
    const char *name;
    const char *first;
    const char *last;
    const char *labels;
    const char *timeZone = "UTC";
    const char *locale = "en_US";
};

class TimeAxisTest : public testing::TestWithParam<TimeCase>
{
};

constexpr auto nameOf = [](const auto &test) { return std::string(test.param.name); };

} // namespace

TEST_P(ValueAxisTest, HasAboutFourRoundLabels)
{
    const auto &c = GetParam();
    EXPECT_EQ(valueAxis(c.maximum), c.axis);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ValueAxisTest,
    testing::Values(ValueCase{"Nothing", 0, {1, 1}}, ValueCase{"BelowOne", 0.7, {1, 1}},
                    ValueCase{"Small", 2.5, {1, 3}}, ValueCase{"OnAStep", 3, {1, 4}},
                    ValueCase{"TieTakesMore", 11.5, {5, 3}}, ValueCase{"Ordinary", 264, {100, 3}},
                    ValueCase{"Slow", 545, {200, 3}},
                    ValueCase{"EndsAboveTheMaximum", 600, {200, 4}},
                    ValueCase{"Seconds", 12345, {5000, 3}},
                    ValueCase{"Largest", maxPlottedValue, {5e11, 3}}),
    nameOf);

TEST_P(TimeAxisTest, HasAboutFiveRoundTimes)
{
    const auto &c = GetParam();
    QStringList labels;
    for (const auto &tick :
         timeTicks(*parseTimestamp(c.first), *parseTimestamp(c.last),
                   {QTimeZone(QByteArray(c.timeZone)), QLocale(QLatin1String(c.locale))}))
        labels += tick.label;
    EXPECT_EQ(labels.join(QLatin1String(" | ")), QString::fromUtf8(c.labels));
}

INSTANTIATE_TEST_SUITE_P(
    Table, TimeAxisTest,
    testing::Values(
        TimeCase{"ADay", "2026-11-19T15:57:00Z", "2026-11-20T15:42:00Z",
                 "6 PM | Fri 20 | 6 AM | 12 PM"},
        TimeCase{"NineteenHours", "2026-11-19T16:41:00Z", "2026-11-20T11:41:00Z",
                 "6 PM | 9 PM | Fri 20 | 3 AM | 6 AM | 9 AM"},
        TimeCase{"ADayIn24Hours", "2026-11-19T15:57:00Z", "2026-11-20T15:42:00Z",
                 "18:00 | Fri 20 | 06:00 | 12:00", "UTC", "de_DE"},
        TimeCase{"LocalTime", "2026-11-20T02:10:00Z", "2026-11-20T07:05:00Z",
                 "8 AM | 9 AM | 10 AM | 11 AM | 12 PM", "Asia/Kolkata"},
        TimeCase{"AnHourTakesMoreOnATie", "2026-11-20T14:41:30Z", "2026-11-20T15:41:30Z",
                 "2:50 PM | 3:00 PM | 3:10 PM | 3:20 PM | 3:30 PM | 3:40 PM"},
        TimeCase{"SeventyMinutes", "2026-11-20T14:31:00Z", "2026-11-20T15:41:00Z",
                 "2:45 PM | 3:00 PM | 3:15 PM | 3:30 PM"},
        TimeCase{"FiveMinutesAcrossMidnight", "2026-11-19T23:57:30Z", "2026-11-20T00:02:30Z",
                 "11:58 PM | 11:59 PM | Fri 20 | 12:01 AM | 12:02 AM"},
        TimeCase{"OnRoundTimes", "2026-11-20T10:00:00Z", "2026-11-20T14:00:00Z",
                 "10 AM | 11 AM | 12 PM | 1 PM | 2 PM"},
        TimeCase{"TenSecondsBetweenMinutes", "2026-11-20T10:00:05Z", "2026-11-20T10:00:15Z", ""},
        TimeCase{"OneInstant", "2026-11-20T10:00:00Z", "2026-11-20T10:00:00Z", "10:00 AM"},
        TimeCase{"FiveDays", "2026-11-15T12:00:00Z", "2026-11-20T12:00:00Z",
                 "Mon 16 | Tue 17 | Wed 18 | Thu 19 | Fri 20"},
        // Clocks went from 2:00 to 3:00 in Berlin.
        TimeCase{"HourThatIsSkipped", "2026-03-28T23:30:00Z", "2026-03-29T04:30:00Z",
                 "01:00 | 03:00 | 04:00 | 05:00 | 06:00", "Europe/Berlin", "en_GB"},
        // And back from 3:00 to 2:00.
        TimeCase{"HourThatIsRepeated", "2026-10-24T22:30:00Z", "2026-10-25T04:30:00Z",
                 "01:00 | 02:00 | 03:00 | 04:00 | 05:00", "Europe/Berlin", "en_GB"}),
    nameOf);

TEST(TimeAxisSpanTest, EnormousSpanHasFewMarks)
{
    const auto ticks =
        timeTicks(*parseTimestamp("2026-11-20T10:00:00Z"), *parseTimestamp("9999-12-31T23:59:59Z"),
                  {QTimeZone("UTC"), QLocale::c()});
    EXPECT_GE(ticks.size(), 4U);
    EXPECT_LE(ticks.size(), 6U);
}

} // namespace ostrel::test
