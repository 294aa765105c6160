#include "NotificationRules.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel {

void PrintTo(const DueNotifications &due, std::ostream *out)
{
    *out << (due.slow ? "slow " : "") << (due.down ? "down " : "") << (due.recovery ? "up " : "");
    if (due.certificateDays)
        *out << "certificate " << *due.certificateDays;
}

namespace {

using namespace std::chrono_literals;

const Timestamp now = *parseTimestamp("2026-03-10T12:00:00Z");

struct Case
{
    std::string name;
    Monitor monitor;
    Check check;
    qint64 failuresBefore;
    DueNotifications due;
};

void PrintTo(const Case &sample, std::ostream *out)
{
    *out << sample.name;
}

/// A website whose switches are all on.
Monitor website()
{
    return {.id = QUuid::createUuid(), .url = u"https://shop.example/"_s};
}

Monitor withoutSwitches()
{
    Monitor monitor = website();
    monitor.notifyOnDown = false;
    monitor.notifyOnRecovery = false;
    return monitor;
}

Monitor withThreshold(double milliseconds, Monitor monitor = website())
{
    monitor.responseTimeThreshold = Milliseconds(milliseconds);
    return monitor;
}

Monitor withWarningDays(qint64 days)
{
    Monitor monitor = website();
    monitor.sslExpiryWarningDays = days;
    return monitor;
}

Monitor portMonitor()
{
    Monitor monitor = withThreshold(1);
    monitor.type = MonitorType::port;
    monitor.port = 5432;
    return monitor;
}

Check httpCheck(int statusCode, double responseTime = 120)
{
    return {.id = QUuid::createUuid(),
            .monitorId = QUuid(),
            .timestamp = now,
            .statusCode = statusCode,
            .isUp = statusCode < 400,
            .responseTime = responseTime};
}

Check portCheck(bool isUp)
{
    return {.id = QUuid::createUuid(),
            .monitorId = QUuid(),
            .timestamp = now,
            .isUp = isUp,
            .responseTime = 120};
}

/// A check without a response.
Check transportError()
{
    return portCheck(false);
}

Check expiringIn(std::chrono::milliseconds remaining, Check check = httpCheck(200))
{
    check.sslExpiresAt = check.timestamp + remaining;
    return check;
}

const DueNotifications nothing;
const DueNotifications down{.down = true};
const DueNotifications recovery{.recovery = true};
const DueNotifications slow{.slow = true};

DueNotifications certificate(qint64 days)
{
    return {.certificateDays = days};
}

std::vector<Case> outageCases()
{
    Monitor onlyDown = website();
    onlyDown.notifyOnRecovery = false;
    Monitor onlyRecovery = website();
    onlyRecovery.notifyOnDown = false;
    return {
        {"FirstFailure", website(), httpCheck(503), 0, nothing},
        {"SecondFailure", website(), httpCheck(503), 1, down},
        {"ThirdFailure", website(), httpCheck(503), 2, nothing},
        {"HundredthFailure", website(), httpCheck(503), 99, nothing},
        {"SecondFailureWithoutAResponse", website(), transportError(), 1, down},
        {"SecondFailureOfAPort", portMonitor(), portCheck(false), 1, down},
        {"SecondFailureWithTheSwitchOff", onlyRecovery, httpCheck(503), 1, nothing},
        {"SecondFailureWithTheOtherSwitchOff", onlyDown, httpCheck(503), 1, down},
        {"SuccessAfterASuccess", website(), httpCheck(200), 0, nothing},
        {"SuccessAfterOneFailure", website(), httpCheck(200), 1, nothing},
        {"SuccessAfterTwoFailures", website(), httpCheck(200), 2, recovery},
        {"SuccessAfterThreeFailures", website(), httpCheck(200), 3, recovery},
        {"SuccessOfAPortAfterTwoFailures", portMonitor(), portCheck(true), 2, recovery},
        {"RecoveryWithTheSwitchOff", onlyDown, httpCheck(200), 2, nothing},
        {"RecoveryWithTheOtherSwitchOff", onlyRecovery, httpCheck(200), 2, recovery},
    };
}

std::vector<Case> slowCases()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return {
        {"FasterThanTheThreshold", withThreshold(500), httpCheck(200, 499.999), 0, nothing},
        {"AsFastAsTheThreshold", withThreshold(500), httpCheck(200, 500), 0, nothing},
        {"JustOverTheThreshold", withThreshold(500), httpCheck(200, 500.001), 0, slow},
        {"WithoutAThreshold", website(), httpCheck(200, 1e9), 0, nothing},
        {"AThresholdOfNothing", withThreshold(0), httpCheck(200, 0.001), 0, slow},
        {"AThresholdWithoutEnd", withThreshold(infinity), httpCheck(200, 1e9), 0, nothing},
        {"SlowButDown", withThreshold(500), httpCheck(500, 900), 0, nothing},
        {"SlowButWithoutAResponse", withThreshold(1), transportError(), 0, nothing},
        {"SlowAfterOneFailure", withThreshold(500), httpCheck(200, 900), 1, slow},
        {"SlowWithTheSwitchesOff", withThreshold(500, withoutSwitches()), httpCheck(200, 900), 0,
         slow},
        {"SlowPort", portMonitor(), portCheck(true), 0, nothing},
    };
}

std::vector<Case> certificateCases()
{
    constexpr auto day = 24h;
    const Monitor week = withWarningDays(7);
    return {
        {"ADayBeforeTheWarning", week, expiringIn(8 * day), 0, nothing},
        {"AMillisecondInTheWarning", week, expiringIn(8 * day - 1ms), 0, certificate(7)},
        {"OnTheWarningDay", week, expiringIn(7 * day), 0, certificate(7)},
        {"ADayAfterTheWarning", week, expiringIn(6 * day), 0, certificate(6)},
        {"FourteenDaysIfNothingElseIsSet", website(), expiringIn(14 * day), 0, certificate(14)},
        {"FifteenDaysIfNothingElseIsSet", website(), expiringIn(15 * day), 0, nothing},
        {"TheLastDay", week, expiringIn(1h), 0, certificate(0)},
        {"Expired", week, expiringIn(-2 * day), 0, certificate(-2)},
        {"NoWarningBeforeTheLastDay", withWarningDays(0), expiringIn(day), 0, nothing},
        {"AWarningOnTheLastDay", withWarningDays(0), expiringIn(day - 1ms), 0, certificate(0)},
        {"AWarningOnlyOnceExpired", withWarningDays(-1), expiringIn(0ms), 0, nothing},
        {"AWarningOnceExpired", withWarningDays(-1), expiringIn(-day), 0, certificate(-1)},
        {"NoCertificate", withWarningDays(100000), httpCheck(200), 0, nothing},
        {"CertificateOfASiteThatIsDown", week, expiringIn(day, httpCheck(500)), 0, certificate(1)},
        {"CertificateSeenBeforeATransportError", week, expiringIn(-day, transportError()), 0,
         nothing},
        {"CertificateWithTheSwitchesOff", withoutSwitches(), expiringIn(day), 0, certificate(1)},
    };
}

std::vector<Case> severalAtOnceCases()
{
    const Check failure = expiringIn(48h, httpCheck(503));
    const Check success = expiringIn(48h, httpCheck(200, 900));
    return {
        {"DownAndCertificate", website(), failure, 1, {.certificateDays = 2, .down = true}},
        {"SlowCertificateAndRecovery",
         withThreshold(500),
         success,
         2,
         {.slow = true, .certificateDays = 2, .recovery = true}},
    };
}

class NotificationRulesTest : public testing::TestWithParam<Case>
{
};

TEST_P(NotificationRulesTest, ReturnsTheDueNotifications)
{
    const Case &c = GetParam();
    EXPECT_EQ(dueNotifications(c.monitor, c.check, c.failuresBefore, QTimeZone::utc()), c.due);
    EXPECT_EQ(isSlow(c.monitor, c.check), c.due.slow);
}

const auto nameOf = [](const auto &test) { return test.param.name; };

INSTANTIATE_TEST_SUITE_P(Outage, NotificationRulesTest, testing::ValuesIn(outageCases()), nameOf);
INSTANTIATE_TEST_SUITE_P(Slow, NotificationRulesTest, testing::ValuesIn(slowCases()), nameOf);
INSTANTIATE_TEST_SUITE_P(Certificate, NotificationRulesTest, testing::ValuesIn(certificateCases()),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(SeveralAtOnce, NotificationRulesTest,
                         testing::ValuesIn(severalAtOnceCases()), nameOf);

TEST(NotificationRulesTimeZoneTest, DaysFollowTheGivenTimeZone)
{
    // Clocks go forward on 29 March 2026 in Berlin: that day has 23 hours.
    Check check = httpCheck(200);
    check.timestamp = *parseTimestamp("2026-03-28T11:00:00Z");
    check.sslExpiresAt = *parseTimestamp("2026-03-29T10:00:00Z");
    const auto daysIn = [&](const char *zone) {
        return dueNotifications(website(), check, 0, QTimeZone(zone)).certificateDays;
    };
    EXPECT_EQ(daysIn("Europe/Berlin"), 1);
    EXPECT_EQ(daysIn("UTC"), 0);
}

} // namespace
} // namespace ostrel
