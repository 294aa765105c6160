#include "KeywordSearch.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include <string>

namespace ostrel::test {

namespace {

struct Case
{
    const char *name;
    const char16_t *text;
    const char16_t *keyword;
    bool isFound;
};

class ContainsKeywordTest : public testing::TestWithParam<Case>
{
};

QString fromUtf16(const char16_t *text)
{
    return QString::fromUtf16(text);
}

/// Makes @p name the user's locale while it lives.
class ScopedLocale
{
public:
    explicit ScopedLocale(const char *name) { use(icu::Locale(name)); }
    ~ScopedLocale() { use(m_before); }
    ScopedLocale(const ScopedLocale &) = delete;
    ScopedLocale &operator=(const ScopedLocale &) = delete;

private:
    static void use(const icu::Locale &locale)
    {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale::setDefault(locale, status);
    }
    const icu::Locale m_before = icu::Locale::getDefault();
};

} // namespace

TEST_P(ContainsKeywordTest, AsAReaderWouldSay)
{
    const Case &c = GetParam();
    for (const char *locale : {"en_US_POSIX", "en_US", "de_DE", "fr_FR"}) {
        const ScopedLocale user(locale);
        EXPECT_EQ(containsKeyword(fromUtf16(c.text), fromUtf16(c.keyword)), c.isFound) << locale;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, ContainsKeywordTest,
    testing::Values(
        Case{"RequiredUpperFoundLower", u"ok", u"OK", true},
        Case{"RequiredLowerFoundUpper", u"STATUS: OK", u"ok", true},
        Case{"InTheMiddle", u"all is okay here", u"is ok", true},
        Case{"Missing", u"failure", u"OK", false}, Case{"EmptyText", u"", u"OK", false},
        Case{"ComposedInDecomposed", u"le cafe\u0301 est ouvert", u"caf\u00e9", true},
        Case{"DecomposedInComposed", u"le caf\u00e9 est ouvert", u"cafe\u0301", true},
        Case{"AccentedCase", u"\u00c9COLE", u"\u00e9cole", true},
        Case{"AccentCounts", u"le cafe est ouvert", u"caf\u00e9", false},
        Case{"AccentCountsTheOtherWay", u"le caf\u00e9 est ouvert", u"cafe", false},
        Case{"Cyrillic", u"\u0412\u0421\u0401 \u0420\u0410\u0411\u041e\u0422\u0410\u0415\u0422",
             u"\u0440\u0430\u0431\u043e\u0442\u0430\u0435\u0442", true},
        Case{"NoPatternStar", u"abc", u"a*c", false}, Case{"NoPatternDot", u"abc", u"a.c", false},
        Case{"PatternCharactersAsText", u"price [a.*] (x|y)$", u"[a.*] (x|y)$", true},
        Case{"PunctuationCounts", u"a-b", u"ab", false}, Case{"Blanks", u"a  b", u"a b", false},
        Case{"Markup", u"<title>OK</title>", u"<TITLE>ok", true},
        Case{"Emoji", u"status \U0001F7E2 fine", u"\U0001F7E2", true},
        Case{"Nul", u"plain", u"\u0001", false}),
    [](const auto &each) { return std::string(each.param.name); });

TEST(ContainsKeywordLocaleTest, TurkishKeepsDottedAndDotlessApart)
{
    {
        const ScopedLocale user("tr_TR");
        EXPECT_FALSE(containsKeyword(QStringLiteral("FILE"), QStringLiteral("file")));
        EXPECT_TRUE(containsKeyword(fromUtf16(u"F\u0130LE"), QStringLiteral("file")));
    }
    const ScopedLocale user("en_US");
    EXPECT_TRUE(containsKeyword(QStringLiteral("FILE"), QStringLiteral("file")));
}

TEST(DecodeBodyTest, TakesUtf8AndNothingElse)
{
    EXPECT_EQ(decodeBody("caf\xc3\xa9", BodyExtent::complete), fromUtf16(u"caf\u00e9"));
    EXPECT_EQ(decodeBody("", BodyExtent::complete), QString());
    EXPECT_FALSE(decodeBody("caf\xe9", BodyExtent::complete)) << "Latin-1";
    EXPECT_FALSE(decodeBody("\xff\xfe", BodyExtent::complete));
    EXPECT_FALSE(decodeBody("\xed\xa0\x80", BodyExtent::complete)) << "a surrogate";
    EXPECT_FALSE(decodeBody("\xc0\xaf", BodyExtent::complete)) << "overlong";
}

TEST(DecodeBodyTest, ACharacterCutInTwoIsAnErrorOnlyAtACompleteBodysEnd)
{
    EXPECT_FALSE(decodeBody("caf\xc3", BodyExtent::complete));
    EXPECT_EQ(decodeBody("caf\xc3", BodyExtent::truncated), QStringLiteral("caf"));
    EXPECT_FALSE(decodeBody("\xc3 caf", BodyExtent::truncated));
}

} // namespace ostrel::test
