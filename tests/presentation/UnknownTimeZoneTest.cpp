#include "DetailBadges.h"
#include "DisplayFormats.h"
#include "PresentationSamples.h"
#include "Printers.h"
#include "RelativeDate.h"
#include "ScopedTimeZone.h"
#include "TimeAxis.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

/// Values of TZ for Central European Time that are no time zone names; Qt may not know them.
class UnknownTimeZoneTest : public testing::TestWithParam<const char *>
{
protected:
    const ScopedTimeZone zone{GetParam()};
    const QLocale british{u"en_GB"_s};
};

} // namespace

TEST_P(UnknownTimeZoneTest, TheComputersClockIsUsed)
{
    EXPECT_EQ(clockTimeText(sampleNow(), {.locale = british}), u"16:42"_s);
}

TEST_P(UnknownTimeZoneTest, TheChartHasItsMarksAtFullHoursOfTheComputersClock)
{
    QStringList labels;
    for (const TimeTick &tick : timeTicks(sampleNow() - 19h, sampleNow(), {.locale = british}))
        labels += tick.label;
    EXPECT_EQ(labels.join(u" | "_s), u"Fri 20 | 03:00 | 06:00 | 09:00 | 12:00 | 15:00"_s);
}

TEST_P(UnknownTimeZoneTest, DaysAndMonthsAreCounted)
{
    const auto ago = [this](std::chrono::hours time) {
        return relativeDateText(sampleNow() - time, sampleNow(), british,
                                QTimeZone::systemTimeZone());
    };
    EXPECT_EQ(ago(49h), u"2 days ago"_s);
    EXPECT_EQ(ago(70 * 24h), u"2 months ago"_s);
}

TEST_P(UnknownTimeZoneTest, ACertificatesDaysAreCounted)
{
    const Monitor monitor = sampleMonitor();
    Check check = upCheck(monitor, sampleNow());
    check.sslExpiresAt = sampleNow() + 12 * 24h;
    const auto badges = detailBadges(monitor, check, sampleNow());
    ASSERT_EQ(badges.size(), 1);
    EXPECT_EQ(badges[0].text, u"SSL: 12d left"_s);
}

INSTANTIATE_TEST_SUITE_P(Table, UnknownTimeZoneTest,
                         testing::Values("/usr/share/zoneinfo/Europe/Berlin", "CET-1",
                                         "CET-1CEST,M3.5.0,M10.5.0/3", "MEZ-1MESZ"));

} // namespace ostrel::test
