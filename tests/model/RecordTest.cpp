#include "Check.h"
#include "Monitor.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

Monitor namedMonitor(const QString &name, const QString &url)
{
    Monitor monitor;
    monitor.name = name;
    monitor.url = url;
    return monitor;
}

TEST(MonitorTest, DisplayNameIsTheName)
{
    EXPECT_EQ(namedMonitor(u"Shop"_s, u"https://a.example"_s).displayName(), u"Shop"_s);
}

TEST(MonitorTest, DisplayNameOfANamelessAddressIsItsHost)
{
    EXPECT_EQ(namedMonitor({}, u"https://a.example:8443/path"_s).displayName(), u"a.example"_s);
}

TEST(MonitorTest, DisplayNameOfABareHostNameIsTheAddress)
{
    EXPECT_EQ(namedMonitor({}, u"db.local"_s).displayName(), u"db.local"_s);
}

TEST(MonitorTest, EveryFieldCountsForEquality)
{
    const std::vector<std::function<void(Monitor &)>> edits = {
        [](Monitor &m) { m.id = QUuid::createUuid(); },
        [](Monitor &m) { m.name = u"x"_s; },
        [](Monitor &m) { m.url = u"x"_s; },
        [](Monitor &m) { m.method = HTTPMethod::HEAD; },
        [](Monitor &m) { m.interval = Seconds(61); },
        [](Monitor &m) { m.timeout = Seconds(31); },
        [](Monitor &m) { m.isEnabled = false; },
        [](Monitor &m) { m.notifyOnDown = false; },
        [](Monitor &m) { m.notifyOnRecovery = false; },
        [](Monitor &m) { m.createdAt += std::chrono::milliseconds(1); },
        [](Monitor &m) { m.type = MonitorType::port; },
        [](Monitor &m) { m.keyword = QString(); },
        [](Monitor &m) { m.keywordShouldExist = false; },
        [](Monitor &m) { m.responseTimeThreshold = Milliseconds(0); },
        [](Monitor &m) { m.port = 0; },
        [](Monitor &m) { m.sslExpiryWarningDays = 15; },
    };
    ASSERT_EQ(edits.size(), 16U);
    const Monitor monitor;
    for (std::size_t i = 0; i < edits.size(); ++i) {
        Monitor edited = monitor;
        edits[i](edited);
        EXPECT_NE(edited, monitor) << i;
        EXPECT_NE(qHash(edited), qHash(monitor)) << i;
    }
}

TEST(CheckTest, EveryFieldCountsForEquality)
{
    const std::vector<std::function<void(Check &)>> edits = {
        [](Check &c) { c.id = QUuid::createUuid(); },
        [](Check &c) { c.monitorId = QUuid::createUuid(); },
        [](Check &c) { c.timestamp += std::chrono::milliseconds(1); },
        [](Check &c) { c.statusCode = 0; },
        [](Check &c) { c.responseTime = 1; },
        [](Check &c) { c.isUp = true; },
        [](Check &c) { c.error = QString(); },
        [](Check &c) { c.sslExpiresAt = Timestamp(); },
        [](Check &c) { c.keywordFound = false; },
    };
    ASSERT_EQ(edits.size(), 9U);
    const Check check;
    for (std::size_t i = 0; i < edits.size(); ++i) {
        Check edited = check;
        edits[i](edited);
        EXPECT_NE(edited, check) << i;
        EXPECT_NE(qHash(edited), qHash(check)) << i;
    }
}

TEST(CheckTest, AnAbsentTextIsNotEqualToAnEmptyOne)
{
    EXPECT_FALSE(OptionalText());
    EXPECT_TRUE(OptionalText(QString()));
    EXPECT_NE(OptionalText(), OptionalText(QString()));
    EXPECT_EQ(OptionalText(u"a"_s), OptionalText(u"a"_s));
    EXPECT_EQ(OptionalText().value_or(u"b"_s), u"b"_s);
}

TEST(CheckTest, CompactOptionalDistinguishesAbsenceFromEveryCode)
{
    EXPECT_FALSE(CompactOptional<qint32>());
    EXPECT_FALSE(CompactOptional<qint32>(std::optional<qint32>()));
    EXPECT_EQ(*CompactOptional<qint32>(0), 0);
    EXPECT_EQ(*CompactOptional<qint32>(-1), -1);
    EXPECT_TRUE(CompactOptional<qint32>(-1));
}

TEST(EnumerationTest, AllCasesAreInOrder)
{
    EXPECT_EQ(allMonitorTypes, (std::array{MonitorType::http, MonitorType::port}));
    EXPECT_EQ(allHTTPMethods, (std::array{HTTPMethod::GET, HTTPMethod::HEAD, HTTPMethod::POST}));
    std::vector<double> seconds;
    for (const CheckInterval interval : allCheckIntervals)
        seconds.push_back(rawValue(interval).count());
    EXPECT_EQ(seconds, (std::vector<double>{30, 60, 300, 900, 1800, 3600}));
}

TEST(EnumerationTest, RawValuesAreReadBack)
{
    for (const MonitorType type : allMonitorTypes)
        EXPECT_EQ(monitorTypeFrom(rawValue(type)), type);
    for (const HTTPMethod method : allHTTPMethods)
        EXPECT_EQ(httpMethodFrom(rawValue(method)), method);
    for (const CheckInterval interval : allCheckIntervals)
        EXPECT_EQ(checkIntervalFrom(rawValue(interval)), interval);
    EXPECT_FALSE(monitorTypeFrom(u"HTTP"));
    EXPECT_FALSE(httpMethodFrom(u"get"));
}

TEST(EnumerationTest, IntervalComesFromExactlyTheOfferedLengths)
{
    EXPECT_EQ(checkIntervalFrom(Seconds(300)), CheckInterval::fiveMinutes);
    EXPECT_FALSE(checkIntervalFrom(Seconds(45)));
    EXPECT_FALSE(checkIntervalFrom(Seconds(300.0000001)));
    EXPECT_FALSE(checkIntervalFrom(Seconds(0)));
}

} // namespace
} // namespace ostrel
