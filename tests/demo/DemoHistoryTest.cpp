#include "DemoHistory.h"

#include "MonitorStore.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

const Timestamp now = *parseTimestamp("2026-11-22T19:00:00Z");

Monitor shop()
{
    return {.id = QUuid(u"0a1b2c3d-4e5f-6789-abcd-ef0123456789"_s), .name = u"Shop"_s};
}

const DemoPast past = {.usualTime = 100ms, .outages = 4, .failure = u"HTTP 503"_s};

TEST(DemoHistoryTest, IsAMonthThatTheStoreKeepsWithRoomForMore)
{
    const auto checks = demoHistory(shop(), past, now);
    EXPECT_LT(checks.size(), MonitorStore::maxChecksPerMonitor - 200);
    EXPECT_GT(checks.size(), 1000);
    EXPECT_TRUE(std::ranges::is_sorted(checks, std::ranges::less_equal{}, &Check::timestamp));
    EXPECT_GE(checks.front().timestamp, now - 30 * 24h);
    EXPECT_LT(checks.front().timestamp, now - 29 * 24h);
    EXPECT_LT(checks.back().timestamp, now);
    for (const Check &check : checks)
        EXPECT_EQ(check.monitorId, shop().id);
}

TEST(DemoHistoryTest, IsTheSameEachTimeAndDiffersBetweenMonitors)
{
    Monitor other = shop();
    other.id = QUuid(u"1a1b2c3d-4e5f-6789-abcd-ef0123456789"_s);
    const auto once = demoHistory(shop(), past, now);
    EXPECT_EQ(once, demoHistory(shop(), past, now));
    const auto others = demoHistory(other, past, now);
    EXPECT_FALSE(std::ranges::equal(once, others, {}, &Check::responseTime, &Check::responseTime));
}

TEST(DemoHistoryTest, HasOutagesWithAReasonButNoneInTheLastDay)
{
    const auto checks = demoHistory(shop(), past, now);
    const auto failed = std::ranges::count(checks, false, &Check::isUp);
    EXPECT_GE(failed, 2 * 2);
    EXPECT_LE(failed, 4 * 7);
    for (const Check &check : checks) {
        EXPECT_EQ(check.error, check.isUp ? OptionalText() : OptionalText(u"HTTP 503"_s));
        EXPECT_TRUE(check.isUp || check.timestamp < now - 23h);
        EXPECT_GT(check.responseTime, 10);
        EXPECT_LT(check.responseTime, 500);
    }
}

TEST(DemoHistoryTest, SaysWhatChecksOfThatMonitorSay)
{
    Monitor port = shop();
    port.type = MonitorType::port;
    EXPECT_FALSE(demoHistory(port, past, now).back().statusCode);

    Monitor page = shop();
    page.keyword = u"bread"_s;
    DemoPast secure = past;
    secure.hasCertificate = true;
    secure.certificateEnd = now + 48h;
    const Check check = demoHistory(page, secure, now).back();
    EXPECT_EQ(check.statusCode, CompactOptional<qint32>(200));
    EXPECT_EQ(check.keywordFound, true);
    EXPECT_EQ(check.sslExpiresAt, CompactOptional<Timestamp>(now + 48h));
}

} // namespace
} // namespace ostrel
