#include "Timestamp.h"

#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

using namespace std::chrono;

constexpr Timestamp moment = sys_days(2026y / 11 / 20) + 19h + 15min + 7s;

TEST(TimestampTest, IsWrittenInWholeSecondsOfUtc)
{
    EXPECT_EQ(formatTimestamp(moment), QByteArrayLiteral("2026-11-20T19:15:07Z"));
    EXPECT_EQ(parseTimestamp("2026-11-20T19:15:07Z"), moment);
}

TEST(TimestampTest, FractionIsRoundedDownAlsoBefore1970)
{
    EXPECT_EQ(formatTimestamp(moment + 999ms), QByteArrayLiteral("2026-11-20T19:15:07Z"));
    EXPECT_EQ(formatTimestamp(Timestamp(-1ms)), QByteArrayLiteral("1969-12-31T23:59:59Z"));
}

TEST(TimestampTest, YearsThatTheFormatCannotHoldAreClamped)
{
    EXPECT_EQ(formatTimestamp(Timestamp::min()), QByteArrayLiteral("0000-01-01T00:00:00Z"));
    EXPECT_EQ(formatTimestamp(Timestamp::max()), QByteArrayLiteral("9999-12-31T23:59:59Z"));
}

TEST(TimestampTest, OtherLayoutsAreRefused)
{
    for (const char *text :
         {"", "2026-11-20", "2026-11-20T19:15:07", "2026-11-20T19:15:07.000Z",
          "2026-11-20T19:15:07+00:00", "2026-11-20T19:15:07z", "2026-11-20t19:15:07Z",
          "2026-11-20 19:15:07Z", " 2026-11-20T19:15:07Z", "2026-11-20T19:15:07Z ",
          "20261120T191507Z", "2026-11-20T19:15Z", "+026-11-20T19:15:07Z", "2026-11- 2T19:15:07Z",
          "2026/11/20T19:15:07Z", "2026-1a-20T19:15:07Z", "2026-11-20T19:15:0:Z"})
        EXPECT_FALSE(parseTimestamp(text)) << text;
}

TEST(TimestampTest, DaysAndTimesThatDoNotExistAreRefused)
{
    for (const char *text : {"2026-02-29T00:00:00Z", "2026-04-31T00:00:00Z", "2026-00-10T00:00:00Z",
                             "2026-13-10T00:00:00Z", "2026-11-00T00:00:00Z", "2026-11-20T24:00:00Z",
                             "2026-11-20T23:60:00Z", "2026-11-20T23:59:60Z"})
        EXPECT_FALSE(parseTimestamp(text)) << text;
    EXPECT_TRUE(parseTimestamp("2028-02-29T00:00:00Z"));
}

TEST(TimestampTest, WrittenTimestampsAreReadBack)
{
    for (Timestamp day = sys_days(1999y / 12 / 30); day < sys_days(2001y / 3 / 3); day += 24h + 7s)
        EXPECT_EQ(parseTimestamp(formatTimestamp(day).toStdString()), day);
}

} // namespace
} // namespace ostrel
