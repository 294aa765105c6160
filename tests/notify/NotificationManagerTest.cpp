#include "NotificationManager.h"

#include "ForeignTexts.h"
#include "Printers.h"
#include "RecordingNotificationCenter.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel {

void PrintTo(const NotificationRequest &request, std::ostream *out)
{
    *out << request.identifier.toStdString() << " | " << request.title.toStdString() << " | "
         << request.body.toStdString() << " | "
         << (request.level == InterruptionLevel::timeSensitive ? "time-sensitive" : "active");
}

namespace {

Monitor monitorNamed(const QString &name, const QString &url = u"https://shop.test/"_s)
{
    Monitor monitor;
    monitor.id = QUuid(u"0a1b2c3d-4e5f-6789-abcd-ef0123456789"_s);
    monitor.name = name;
    monitor.url = url;
    return monitor;
}

Monitor shop()
{
    return monitorNamed(u"Shop"_s);
}

struct Case
{
    const char *name;
    std::function<void(NotificationManager &)> notify;
    const char *kind;
    const char *title;
    const char *body;
    InterruptionLevel level;
};

void PrintTo(const Case &sample, std::ostream *out)
{
    *out << sample.name;
}

constexpr auto urgent = InterruptionLevel::timeSensitive;
constexpr auto usual = InterruptionLevel::active;

Case down(const char *name, const OptionalText &error, const char *body)
{
    return {name,   [error](auto &manager) { manager.notifyDown(shop(), error); },
            "down", "Shop is Down",
            body,   urgent};
}

Case recovery(const char *name, double milliseconds, const char *body)
{
    return {
        name, [=](auto &manager) { manager.notifyRecovery(shop(), Milliseconds(milliseconds)); },
        "up", "Shop is Back Up",
        body, usual};
}

Case slow(const char *name, double milliseconds, double threshold, const char *body)
{
    return {name,
            [=](auto &manager) {
                manager.notifySlow(shop(), Milliseconds(milliseconds), Milliseconds(threshold));
            },
            "slow",
            "Shop is Slow",
            body,
            usual};
}

Case certificate(const char *name, qint64 days, const char *body, InterruptionLevel level)
{
    return {name,  [=](auto &manager) { manager.notifyCertificateExpiring(shop(), days); },
            "ssl", "SSL Certificate Expiring",
            body,  level};
}

std::vector<Case> cases()
{
    const Monitor unnamed = monitorNamed(QString());
    const Monitor addressOnly = monitorNamed(QString(), u"db.local"_s);
    return {
        down("DownWithoutAnErrorText", std::nullopt, "Not responding"),
        down("DownWithAnErrorText", u"HTTP 503"_s, "HTTP 503"),
        down("DownWithAnEmptyErrorText", QString(QLatin1String("")), ""),
        down("DownWithFormatCharacters", u"100%s <b>%1</b>"_s, "100%s <b>%1</b>"),
        recovery("Recovery", 1234.56, "Responding in 1235ms"),
        recovery("RecoveryBelowAMillisecond", 0.4, "Responding in 0ms"),
        recovery("RecoveryTiesToEven", 500.5, "Responding in 500ms"),
        recovery("RecoveryWithoutGrouping", 1234567, "Responding in 1234567ms"),
        slow("Slow", 1234.56, 1000, "1235ms (threshold: 1000ms)"),
        slow("SlowTiesToEven", 501.5, 500.5, "502ms (threshold: 500ms)"),
        slow("SlowBelowAMillisecond", 0.4, 0.2, "0ms (threshold: 0ms)"),
        certificate("CertificateFourteenDays", 14, "Shop: 14 days remaining", usual),
        certificate("CertificateFourDays", 4, "Shop: 4 days remaining", usual),
        certificate("CertificateThreeDays", 3, "Shop: 3 days remaining", urgent),
        certificate("CertificateTwoDays", 2, "Shop: 2 days remaining", urgent),
        certificate("CertificateOneDay", 1, "Shop: 1 day remaining", urgent),
        certificate("CertificateLastDay", 0, "Shop: 0 days remaining", urgent),
        certificate("CertificateExpiredYesterday", -1, "Shop: -1 days remaining", urgent),
        certificate("CertificateExpiredTwoDaysAgo", -2, "Shop: -2 days remaining", urgent),
        {"UnnamedDown", [=](auto &manager) { manager.notifyDown(unnamed, std::nullopt); }, "down",
         "shop.test is Down", "Not responding", urgent},
        {"UnnamedRecovery",
         [=](auto &manager) { manager.notifyRecovery(unnamed, Milliseconds(1)); }, "up",
         "shop.test is Back Up", "Responding in 1ms", usual},
        {"UnnamedSlow",
         [=](auto &manager) { manager.notifySlow(unnamed, Milliseconds(2), Milliseconds(1)); },
         "slow", "shop.test is Slow", "2ms (threshold: 1ms)", usual},
        {"UnnamedCertificate",
         [=](auto &manager) { manager.notifyCertificateExpiring(unnamed, 14); }, "ssl",
         "SSL Certificate Expiring", "shop.test: 14 days remaining", usual},
        {"UnnamedWithoutAHost",
         [=](auto &manager) { manager.notifyDown(addressOnly, std::nullopt); }, "down",
         "db.local is Down", "Not responding", urgent},
    };
}

class NotificationManagerTest : public testing::TestWithParam<Case>
{
};

TEST_P(NotificationManagerTest, PostsExactlyOneRequest)
{
    const Case &sample = GetParam();
    test::RecordingNotificationCenter center;
    NotificationManager manager(center);

    sample.notify(manager);

    const NotificationRequest expected = {.identifier = QString::fromUtf8(sample.kind) +
                                                        u"-0A1B2C3D-4E5F-6789-ABCD-EF0123456789"_s,
                                          .title = QString::fromUtf8(sample.title),
                                          .body = QString::fromUtf8(sample.body),
                                          .level = sample.level,
                                          .monitorId = shop().id};
    ASSERT_EQ(center.requests.size(), 1);
    EXPECT_EQ(center.requests.front(), expected);
}

INSTANTIATE_TEST_SUITE_P(Kinds, NotificationManagerTest, testing::ValuesIn(cases()),
                         [](const auto &test) { return std::string(test.param.name); });

class ForeignNotificationTest : public testing::TestWithParam<test::ForeignText>
{
};

TEST_P(ForeignNotificationTest, IsFitForPeopleAndStillSaysWhatHappened)
{
    const QString &foreign = GetParam().text;
    test::RecordingNotificationCenter center;
    NotificationManager manager(center);
    manager.notifyDown(monitorNamed(foreign), foreign);
    manager.notifyRecovery(monitorNamed(foreign), Milliseconds(1));
    manager.notifySlow(monitorNamed(foreign), Milliseconds(2), Milliseconds(1));
    manager.notifyCertificateExpiring(monitorNamed(foreign), 14);

    for (const NotificationRequest &request : center.requests) {
        EXPECT_TRUE(test::isFitForPeople(request.title));
        EXPECT_TRUE(test::isFitForPeople(request.body));
    }
    EXPECT_TRUE(center.requests[0].title.endsWith(u" is Down"_s));
    EXPECT_TRUE(center.requests[1].title.endsWith(u" is Back Up"_s));
    EXPECT_TRUE(center.requests[2].title.endsWith(u" is Slow"_s));
    EXPECT_TRUE(center.requests[3].body.endsWith(u": 14 days remaining"_s));
}

INSTANTIATE_TEST_SUITE_P(Table, ForeignNotificationTest, testing::ValuesIn(test::foreignTexts()),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(NotificationIdentifierTest, IsTheSameOnlyForTheSameKindAndMonitor)
{
    test::RecordingNotificationCenter center;
    NotificationManager manager(center);
    Monitor other = shop();
    other.id = QUuid::createUuid();

    manager.notifySlow(shop(), Milliseconds(2), Milliseconds(1));
    manager.notifySlow(shop(), Milliseconds(3), Milliseconds(1));
    manager.notifySlow(other, Milliseconds(3), Milliseconds(1));
    manager.notifyRecovery(shop(), Milliseconds(3));

    const auto &requests = center.requests;
    EXPECT_EQ(requests.at(0).identifier, requests.at(1).identifier);
    EXPECT_NE(requests.at(0).identifier, requests.at(2).identifier);
    EXPECT_NE(requests.at(0).identifier, requests.at(3).identifier);
}

} // namespace
} // namespace ostrel
