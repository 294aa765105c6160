#include "DisplayFormats.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

struct ResponseTimeCase
{
    const char *name;
    double milliseconds;
    const char *inShort;
    const char *compact;
    const char *spaced;
};

class ResponseTimeFormatTest : public testing::TestWithParam<ResponseTimeCase>
{
};

struct UptimeCase
{
    const char *name;
    double share;
    const char *row;
    const char *card;
    const char *statistic;
};

class UptimeFormatTest : public testing::TestWithParam<UptimeCase>
{
};

struct AddressCase
{
    const char *name;
    const char *url;
    const char *text;
};

class AddressFormatTest : public testing::TestWithParam<AddressCase>
{
};

struct ClockCase
{
    const char *name;
    const char *locale;
    const char *text;
    const char *hourPattern;
};

class ClockFormatTest : public testing::TestWithParam<ClockCase>
{
};

constexpr auto nameOf = [](const auto &test) { return std::string(test.param.name); };

} // namespace

TEST_P(ResponseTimeFormatTest, HasAShortACompactAndASpacedForm)
{
    const auto &c = GetParam();
    const Milliseconds time(c.milliseconds);
    EXPECT_EQ(shortResponseTimeText(time), QLatin1String(c.inShort));
    EXPECT_EQ(compactResponseTimeText(time), QLatin1String(c.compact));
    EXPECT_EQ(responseTimeText(time), QLatin1String(c.spaced));
}

INSTANTIATE_TEST_SUITE_P(
    Table, ResponseTimeFormatTest,
    testing::Values(ResponseTimeCase{"None", 0, "0ms", "0ms", "0 ms"},
                    ResponseTimeCase{"Usual", 245.4, "245ms", "245ms", "245 ms"},
                    // C's printf rounds ties to even.
                    ResponseTimeCase{"TieGoesDown", 2.5, "2ms", "2ms", "2 ms"},
                    ResponseTimeCase{"TieGoesUp", 3.5, "4ms", "4ms", "4 ms"},
                    ResponseTimeCase{"JustUnderASecond", 999.6, "1000ms", "1000ms", "1000 ms"},
                    ResponseTimeCase{"ASecond", 1000, "1.0s", "1000ms", "1000 ms"},
                    ResponseTimeCase{"ManySeconds", 12345, "12.3s", "12345ms", "12345 ms"}),
    nameOf);

TEST_P(UptimeFormatTest, HasAFormForEachPlace)
{
    const auto &c = GetParam();
    EXPECT_EQ(rowUptimeText(c.share), QLatin1String(c.row));
    EXPECT_EQ(cardUptimeText(c.share), QLatin1String(c.card));
    EXPECT_EQ(statisticUptimeText(c.share), QLatin1String(c.statistic));
}

INSTANTIATE_TEST_SUITE_P(Table, UptimeFormatTest,
                         testing::Values(UptimeCase{"All", 1, "100%", "100.0%", "100"},
                                         UptimeCase{"NearlyAll", 0.99996, "100.0%", "100.0%",
                                                    "100.0"},
                                         UptimeCase{"Most", 0.9987, "99.9%", "99.9%", "99.9"},
                                         UptimeCase{"Half", 0.5, "50.0%", "50.0%", "50.0"},
                                         UptimeCase{"None", 0, "0.0%", "0.0%", "0.0"}),
                         nameOf);

TEST(DisplayFormatsTest, PercentageHasTwoDecimals)
{
    EXPECT_EQ(percentageText(100), u"100.00%"_s);
    EXPECT_EQ(percentageText(99.8749), u"99.87%"_s);
}

TEST(DisplayFormatsTest, AverageOfNothingIsTwoDashes)
{
    EXPECT_EQ(averageText(0ms), u"--"_s);
    EXPECT_EQ(averageText(-1ms), u"--"_s);
    EXPECT_EQ(averageText(Milliseconds(0.4)), u"0"_s);
    EXPECT_EQ(averageText(Milliseconds(191.6)), u"192"_s);
}

TEST_P(AddressFormatTest, LeavesOutSchemeAndOuterSlashes)
{
    const auto &c = GetParam();
    EXPECT_EQ(addressText(QLatin1String(c.url)), QLatin1String(c.text));
}

INSTANTIATE_TEST_SUITE_P(
    Table, AddressFormatTest,
    testing::Values(AddressCase{"Https", "https://shop.example/", "shop.example"},
                    AddressCase{"HttpWithPath", "http://shop.example/cart/", "shop.example/cart"},
                    AddressCase{"EveryOccurrence", "https://a.example/?to=http://b.example",
                                "a.example/?to=b.example"},
                    AddressCase{"HostOfAPortMonitorIsUnchanged", "db.local", "db.local"},
                    AddressCase{"OnlySlashes", "https:////", ""}, AddressCase{"Empty", "", ""}),
    nameOf);

TEST_P(ClockFormatTest, FollowsTheLocaleWithoutSeconds)
{
    const auto &c = GetParam();
    const QLocale locale{QLatin1String(c.locale)};
    const auto instant = *parseTimestamp("2026-11-20T14:42:31Z");
    const ClockStyle clock = {QTimeZone("Europe/Berlin"), locale};
    EXPECT_EQ(clockTimeText(instant, clock), QString::fromUtf8(c.text));
    EXPECT_EQ(fullHourPattern(clock), QLatin1String(c.hourPattern));
}

INSTANTIATE_TEST_SUITE_P(Table, ClockFormatTest,
                         testing::Values(ClockCase{"American", "en_US", "3:42 PM", "h AP"},
                                         ClockCase{"British", "en_GB", "15:42", "HH:mm"},
                                         ClockCase{"Finnish", "fi_FI", "15.42", "H.mm"},
                                         ClockCase{"Korean", "ko_KR", "오후 3:42", "AP h"},
                                         ClockCase{"Posix", "C", "15:42", "HH:mm"}),
                         nameOf);

TEST(ClockFormatChoiceTest, TheUsersChoiceOnTheDesktopGoesBeforeTheLocales)
{
    const auto instant = *parseTimestamp("2026-11-20T14:42:31Z");
    const auto shown = [&](const char *locale, bool countsToTwelve) {
        const ClockStyle clock = {QTimeZone::utc(), QLocale(QLatin1String(locale)), countsToTwelve};
        return clockTimeText(instant, clock) + u" | "_s + fullHourPattern(clock);
    };
    EXPECT_EQ(shown("en_US", false), u"14:42 | HH:mm"_s);
    EXPECT_EQ(shown("en_US", true), u"2:42 PM | h AP"_s);
    EXPECT_EQ(shown("fi_FI", false), u"14.42 | H.mm"_s) << "the locale's own";
    EXPECT_EQ(shown("en_GB", true), u"2:42 PM | h AP"_s);
}

} // namespace ostrel::test
