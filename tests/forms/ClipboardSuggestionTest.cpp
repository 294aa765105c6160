#include "ClipboardSuggestion.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

struct Case
{
    const char *name;
    const char16_t *text;
    std::optional<const char16_t *> suggestion;
};

class ClipboardSuggestionTest : public testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(ClipboardSuggestionTest, OffersWebAddressesOnly)
{
    const auto suggestion = clipboardSuggestion(QString::fromUtf16(GetParam().text));
    ASSERT_EQ(suggestion.has_value(), GetParam().suggestion.has_value());
    if (suggestion) {
        EXPECT_EQ(*suggestion, QString::fromUtf16(*GetParam().suggestion));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, ClipboardSuggestionTest,
    testing::Values(Case{"AddressSurroundedByBlanksAndANewline", u"  https://a.example/path \n",
                         u"https://a.example/path"},
                    Case{"PlainHttp", u"http://a.example", u"http://a.example"},
                    Case{"HostWithoutDot", u"http://localhost:3000", u"http://localhost:3000"},
                    Case{"OtherScheme", u"ftp://x", {}}, Case{"NoScheme", u"example.org", {}},
                    Case{"SchemeWithoutHost", u"https://", {}},
                    Case{"PathWithoutHost", u"https:///path", {}},
                    Case{"OneSlash", u"https:/a.example", {}},
                    Case{"UpperCaseScheme", u"HTTPS://a.example", {}},
                    Case{"TwoLines", u"https://a.example\nhttps://b.example", {}},
                    Case{"BlankInHost", u"https://a b.example", {}},
                    Case{"FurtherIn", u"see https://a.example", {}}, Case{"Empty", u"", {}},
                    Case{"Blanks", u" \n", {}}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
