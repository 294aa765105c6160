#include "TimeoutText.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

struct PrintCase
{
    const char *name;
    const char *locale;
    double seconds;
    const char16_t *text;
};

class TimeoutPrintTest : public testing::TestWithParam<PrintCase>
{
};

struct ParseCase
{
    const char *name;
    const char *locale;
    const char16_t *text;
    std::optional<double> seconds;
};

class TimeoutParseTest : public testing::TestWithParam<ParseCase>
{
};

QLocale localeOf(const char *name)
{
    return QLocale(QString::fromLatin1(name));
}

} // namespace

TEST_P(TimeoutPrintTest, FollowsTheLocale)
{
    const PrintCase &c = GetParam();
    EXPECT_EQ(timeoutText(Seconds(c.seconds), localeOf(c.locale)), QString::fromUtf16(c.text));
}

INSTANTIATE_TEST_SUITE_P(Table, TimeoutPrintTest,
                         testing::Values(PrintCase{"Whole", "en_US", 30, u"30"},
                                         PrintCase{"Fraction", "en_US", 2.5, u"2.5"},
                                         PrintCase{"GermanFraction", "de_DE", 2.5, u"2,5"},
                                         PrintCase{"Grouped", "en_US", 3600, u"3,600"},
                                         PrintCase{"GermanGrouped", "de_DE", 3600, u"3.600"},
                                         PrintCase{"ArabicDigits", "ar_EG", 30, u"\u0663\u0660"}),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_P(TimeoutParseTest, FollowsTheLocale)
{
    const ParseCase &c = GetParam();
    const auto seconds = timeoutFrom(QString::fromUtf16(c.text), localeOf(c.locale));
    ASSERT_EQ(seconds.has_value(), c.seconds.has_value());
    if (seconds) {
        EXPECT_EQ(seconds->count(), *c.seconds);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, TimeoutParseTest,
                         testing::Values(ParseCase{"Whole", "en_US", u"30", 30},
                                         ParseCase{"Fraction", "en_US", u"2.5", 2.5},
                                         ParseCase{"GermanFraction", "de_DE", u"2,5", 2.5},
                                         ParseCase{"GermanPoint", "de_DE", u"2.5", {}},
                                         ParseCase{"Grouped", "en_US", u"3,600", 3600},
                                         ParseCase{"GermanGrouped", "de_DE", u"3.600", 3600},
                                         ParseCase{"ArabicDigits", "ar_EG", u"\u0663\u0660", 30},
                                         ParseCase{"AsciiDigitsInArabic", "ar_EG", u"30", 30},
                                         ParseCase{"SurroundedByBlanks", "en_US", u" 30 ", 30},
                                         ParseCase{"Zero", "en_US", u"0", {}},
                                         ParseCase{"Negative", "en_US", u"-1", {}},
                                         ParseCase{"Empty", "en_US", u"", {}},
                                         ParseCase{"Words", "en_US", u"soon", {}},
                                         ParseCase{"Unit", "en_US", u"30s", {}},
                                         ParseCase{"Infinity", "en_US", u"inf", {}},
                                         ParseCase{"NotANumber", "en_US", u"nan", {}},
                                         ParseCase{"TooLarge", "en_US", u"1e999", {}}),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(TimeoutTextTest, PrintedTimeoutsAreReadBackInEveryLocale)
{
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    ASSERT_GT(locales.size(), 100);
    for (const QLocale &locale : locales) {
        for (const double seconds : {30.0, 2.5, 0.1, 3600.0, 1234567.125}) {
            const auto read = timeoutFrom(timeoutText(Seconds(seconds), locale), locale);
            EXPECT_EQ(read.value_or(Seconds(0)).count(), seconds) << locale.name().toStdString();
        }
    }
}

} // namespace ostrel::test
