#include "KeywordSearch.h"

#include "ScopedLocale.h"

#include <gtest/gtest.h>

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

/// So long that ICU isn't asked for all of it.
QString amongMuch(const QString &text)
{
    return QString(200'000, u'x') + text + QString(200'000, u'x');
}

} // namespace

TEST_P(ContainsKeywordTest, AsAReaderWouldSay)
{
    const Case &c = GetParam();
    for (const char *locale : {"en_US_POSIX", "en_US", "de_DE", "fr_FR"}) {
        const ScopedLocale user(locale);
        const QString text = fromUtf16(c.text);
        const QString keyword = fromUtf16(c.keyword);
        EXPECT_EQ(containsKeyword(text, keyword), c.isFound) << locale;
        EXPECT_EQ(containsKeyword(amongMuch(text), keyword), c.isFound) << locale;
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

TEST(ContainsKeywordLocaleTest, WhatWeighsNothingIsPassedOver)
{
    const ScopedLocale user("en_US");
    const QString text = QString::fromUtf16(u"er\u0000r\u00ador", 7);
    EXPECT_TRUE(containsKeyword(text, QStringLiteral("error")));
    EXPECT_TRUE(containsKeyword(amongMuch(text), QStringLiteral("error")));
}

TEST(ContainsKeywordLocaleTest, AKeywordThatWeighsNothingIsFoundAsItIs)
{
    const ScopedLocale user("en_US");
    EXPECT_FALSE(containsKeyword(amongMuch({}), QString(QChar(1))));
    EXPECT_TRUE(containsKeyword(amongMuch(QString(QChar(1))), QString(QChar(1))));
}

TEST(ContainsKeywordLocaleTest, AccentsWithoutEndCostNoMoreThanOthers)
{
    const ScopedLocale user("en_US");
    // In the wrong order, so that each would have to be moved past half of the others.
    const QString accents = fromUtf16(u"\u0301\u0316").repeated(2'000'000);
    const QString keyword = fromUtf16(u"caf\u00e9");
    EXPECT_FALSE(containsKeyword(accents.left(90'000), keyword));
    EXPECT_FALSE(containsKeyword(accents, keyword));
    EXPECT_TRUE(containsKeyword(accents + u'-' + keyword, keyword));
    EXPECT_TRUE(containsKeyword(accents.left(90'000) + u'-' + keyword, keyword));
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
