#include "DetailBadges.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

const QTimeZone &utc()
{
    static const QTimeZone zone("UTC");
    return zone;
}

QList<Badge> badgesOf(const Monitor &monitor, const std::optional<Check> &latest)
{
    return detailBadges(monitor, latest, sampleNow(), utc());
}

struct CertificateCase
{
    const char *name;
    std::chrono::hours left;
    const char *text;
    Tone tone;
};

class CertificateBadgeTest : public testing::TestWithParam<CertificateCase>
{
};

struct KeywordCase
{
    const char *name;
    std::optional<bool> found;
    bool shouldExist;
    bool isAsWished;
};

class KeywordBadgeTest : public testing::TestWithParam<KeywordCase>
{
};

} // namespace

TEST_P(CertificateBadgeTest, ShowsTheDaysAndTheirSeverity)
{
    const auto &c = GetParam();
    const Monitor monitor = sampleMonitor();
    Check latest = upCheck(monitor, sampleNow());
    latest.sslExpiresAt = sampleNow() + c.left;
    EXPECT_EQ(badgesOf(monitor, latest),
              (QList<Badge>{{u"lock.shield.fill"_s, QLatin1String(c.text), c.tone}}));
}

INSTANTIATE_TEST_SUITE_P(
    Table, CertificateBadgeTest,
    testing::Values(CertificateCase{"Expired", -48h, "SSL: -2d left", Tone::Down},
                    CertificateCase{"In7Days", 7 * 24h, "SSL: 7d left", Tone::Down},
                    CertificateCase{"In8Days", 8 * 24h, "SSL: 8d left", Tone::Warning},
                    CertificateCase{"In30Days", 30 * 24h, "SSL: 30d left", Tone::Warning},
                    CertificateCase{"AnHourBefore31Days", 31 * 24h - 1h, "SSL: 30d left",
                                    Tone::Warning},
                    CertificateCase{"In31Days", 31 * 24h, "SSL: 31d left", Tone::Up}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_P(KeywordBadgeTest, ShowsWhetherTheKeywordIsAsExpected)
{
    const auto &c = GetParam();
    Monitor monitor = sampleMonitor();
    monitor.keyword = u"healthy"_s;
    monitor.keywordShouldExist = c.shouldExist;
    Check latest = upCheck(monitor, sampleNow());
    latest.keywordFound = c.found;

    const Badge good{u"text.magnifyingglass"_s, u"Keyword OK"_s, Tone::Up};
    const Badge bad{u"exclamationmark.magnifyingglass"_s, u"Keyword issue"_s, Tone::Down};
    EXPECT_EQ(badgesOf(monitor, latest), QList<Badge>{c.isAsWished ? good : bad});
}

INSTANTIATE_TEST_SUITE_P(Table, KeywordBadgeTest,
                         testing::Values(KeywordCase{"FoundAsWished", true, true, true},
                                         KeywordCase{"MissingAgainstTheWish", false, true, false},
                                         KeywordCase{"FoundAgainstTheWish", true, false, false},
                                         KeywordCase{"MissingAsWished", false, false, true},
                                         KeywordCase{"NotLookedForYet", {}, true, false},
                                         KeywordCase{
                                             "NotLookedForYetAndUnwished", {}, false, true}),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(DetailBadgesTest, KeywordWithoutAnyCheckIsAnIssueIfItShouldExist)
{
    Monitor monitor = sampleMonitor();
    monitor.keyword = u"healthy"_s;
    EXPECT_EQ(badgesOf(monitor, std::nullopt).value(0).text, u"Keyword issue"_s);
    monitor.keywordShouldExist = false;
    EXPECT_EQ(badgesOf(monitor, std::nullopt).value(0).text, u"Keyword OK"_s);
}

TEST(DetailBadgesTest, EmptyKeywordHasNoBadge)
{
    Monitor monitor = sampleMonitor();
    monitor.keyword = QString();
    EXPECT_EQ(badgesOf(monitor, upCheck(monitor, sampleNow())), QList<Badge>());
}

TEST(DetailBadgesTest, SlowerThanTheThresholdIsSlow)
{
    Monitor monitor = sampleMonitor();
    monitor.responseTimeThreshold = Milliseconds(1000);
    EXPECT_EQ(badgesOf(monitor, upCheck(monitor, sampleNow(), 1532.4)),
              (QList<Badge>{{u"speedometer"_s, u"Slow (1532ms)"_s, Tone::Warning}}));
}

TEST(DetailBadgesTest, ExactlyTheThresholdIsNotSlow)
{
    Monitor monitor = sampleMonitor();
    monitor.responseTimeThreshold = Milliseconds(1000);
    EXPECT_EQ(badgesOf(monitor, upCheck(monitor, sampleNow(), 1000)), QList<Badge>());
    EXPECT_EQ(badgesOf(monitor, std::nullopt), QList<Badge>());
}

TEST(DetailBadgesTest, PortMonitorShowsItsPort)
{
    Monitor monitor = sampleMonitor();
    monitor.type = MonitorType::port;
    monitor.port = 5432;
    EXPECT_EQ(badgesOf(monitor, std::nullopt),
              (QList<Badge>{{u"network"_s, u"Port 5432"_s, Tone::Accent}}));
    monitor.type = MonitorType::http;
    EXPECT_EQ(badgesOf(monitor, std::nullopt), QList<Badge>());
}

TEST(DetailBadgesTest, PortMonitorWithoutAPortStillSaysItsKind)
{
    Monitor monitor = sampleMonitor();
    monitor.type = MonitorType::port;
    EXPECT_EQ(badgesOf(monitor, std::nullopt),
              (QList<Badge>{{u"network"_s, u"Port"_s, Tone::Accent}}));
}

TEST(DetailBadgesTest, AllBadgesAreInOrder)
{
    Monitor monitor = sampleMonitor();
    monitor.type = MonitorType::port;
    monitor.port = 443;
    monitor.keyword = u"healthy"_s;
    monitor.responseTimeThreshold = Milliseconds(10);
    Check latest = upCheck(monitor, sampleNow());
    latest.sslExpiresAt = sampleNow() + 24h;
    QStringList symbols;
    for (const Badge &badge : badgesOf(monitor, latest))
        symbols += badge.symbol;
    EXPECT_EQ(symbols.join(QLatin1Char(' ')),
              u"lock.shield.fill exclamationmark.magnifyingglass speedometer network"_s);
}

} // namespace ostrel::test
