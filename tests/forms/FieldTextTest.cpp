#include "FieldText.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// Unicode's property White_Space, all of it.
const std::u16string allWhiteSpace =
    u"\t\n\v\f\r \u0085\u00a0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009"
    u"\u200a\u2028\u2029\u202f\u205f\u3000";

struct IntegerCase
{
    const char *name;
    const char16_t *text;
    std::optional<qint64> number;
};

class IntegerTest : public testing::TestWithParam<IntegerCase>
{
};

struct DecimalCase
{
    const char *name;
    const char16_t *text;
    std::optional<double> number;
};

class DecimalTest : public testing::TestWithParam<DecimalCase>
{
};

} // namespace

TEST(TrimmedFieldTest, RemovesEveryWhiteSpaceCharacterAtBothEnds)
{
    ASSERT_EQ(allWhiteSpace.size(), 25u);
    for (const char16_t c : allWhiteSpace) {
        const QString space(1, QChar(c));
        EXPECT_EQ(trimmedField(space + space + u"a  b"_s + space), u"a  b"_s)
            << std::hex << unsigned(c);
    }
}

TEST(TrimmedFieldTest, RemovesNothingElse)
{
    for (unsigned c = 1; c <= 0xffff; ++c) {
        const bool isWhiteSpace = allWhiteSpace.find(char16_t(c)) != std::u16string::npos;
        EXPECT_EQ(trimmedField(QChar(c)).isEmpty(), isWhiteSpace) << std::hex << c;
    }
}

TEST(TrimmedFieldTest, MakesATextOfBlanksEmpty)
{
    EXPECT_EQ(trimmedField(u" \n\t "_s), QString());
    EXPECT_EQ(trimmedField(QString()), QString());
}

TEST_P(IntegerTest, Parses)
{
    EXPECT_EQ(integerFrom(QString::fromUtf16(GetParam().text)), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Table, IntegerTest,
    testing::Values(
        IntegerCase{"Plain", u"5432", 5432}, IntegerCase{"Zero", u"0", 0},
        IntegerCase{"LeadingZeros", u"0080", 80}, IntegerCase{"Plus", u"+443", 443},
        IntegerCase{"Minus", u"-1", -1},
        IntegerCase{"Largest", u"9223372036854775807", 9223372036854775807},
        IntegerCase{"Overflow", u"9223372036854775808", {}},
        IntegerCase{"Smallest", u"-9223372036854775808", std::numeric_limits<qint64>::min()},
        IntegerCase{"Underflow", u"-9223372036854775809", {}}, IntegerCase{"Empty", u"", {}},
        IntegerCase{"SignAlone", u"+", {}}, IntegerCase{"TwoSigns", u"+-5", {}},
        IntegerCase{"TwoPluses", u"++5", {}}, IntegerCase{"LeadingBlank", u" 5432", {}},
        IntegerCase{"TrailingBlank", u"5432 ", {}}, IntegerCase{"LineEnd", u"5432\n", {}},
        IntegerCase{"Fraction", u"80.0", {}}, IntegerCase{"Exponent", u"8e1", {}},
        IntegerCase{"Hexadecimal", u"0x50", {}}, IntegerCase{"Grouped", u"5,432", {}},
        IntegerCase{"Path", u"8080/path", {}}, IntegerCase{"ArabicDigits", u"\u0668\u0660", {}},
        IntegerCase{"FullWidthDigits", u"\uff18\uff10", {}}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_P(DecimalTest, Parses)
{
    EXPECT_EQ(decimalFrom(QString::fromUtf16(GetParam().text)), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Table, DecimalTest,
    testing::Values(DecimalCase{"Whole", u"500", 500}, DecimalCase{"Fraction", u"450.9", 450.9},
                    DecimalCase{"Zero", u"0", 0}, DecimalCase{"Negative", u"-1.5", -1.5},
                    DecimalCase{"Plus", u"+2.5", 2.5}, DecimalCase{"NoWhole", u".5", 0.5},
                    DecimalCase{"NoFraction", u"5.", 5}, DecimalCase{"Exponent", u"1e3", 1000},
                    DecimalCase{"Empty", u"", {}}, DecimalCase{"PointAlone", u".", {}},
                    DecimalCase{"TwoSigns", u"+-5", {}}, DecimalCase{"Comma", u"450,9", {}},
                    DecimalCase{"Grouped", u"1,000", {}}, DecimalCase{"TwoPoints", u"1.000.0", {}},
                    DecimalCase{"LeadingBlank", u" 500", {}},
                    DecimalCase{"TrailingBlank", u"500 ", {}}, DecimalCase{"Unit", u"500ms", {}},
                    DecimalCase{"Words", u"slow", {}}, DecimalCase{"Infinity", u"inf", {}},
                    DecimalCase{"NegativeInfinity", u"-infinity", {}},
                    DecimalCase{"NotANumber", u"nan", {}}, DecimalCase{"Hexadecimal", u"0x10", {}},
                    DecimalCase{"TooLarge", u"1e999", {}}, DecimalCase{"TooSmall", u"1e-999", {}},
                    DecimalCase{"ArabicDigits", u"\u0665\u0660", {}}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
