#include "FormValidation.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

struct WebsiteCase
{
    const char *name;
    const char16_t *url;
    bool isValid;
};

class WebsiteValidationTest : public testing::TestWithParam<WebsiteCase>
{
};

struct PortCase
{
    const char *name;
    const char16_t *host;
    const char16_t *portText;
    bool isValid;
};

class PortValidationTest : public testing::TestWithParam<PortCase>
{
};

} // namespace

TEST_P(WebsiteValidationTest, Decides)
{
    EXPECT_EQ(isValidWebsite(QString::fromUtf16(GetParam().url)), GetParam().isValid);
}

INSTANTIATE_TEST_SUITE_P(
    Table, WebsiteValidationTest,
    testing::Values(WebsiteCase{"LocalhostAlone", u"localhost", false},
                    WebsiteCase{"LocalhostWithSchemeAndPort", u"http://localhost:3000", true},
                    WebsiteCase{"SchemeWordAlone", u"http", true},
                    WebsiteCase{"ShortDomain", u"a.b", true}, WebsiteCase{"DotAlone", u".", true},
                    WebsiteCase{"HttpWord", u"httpbin", true},
                    WebsiteCase{"UpperCaseScheme", u"HTTP://localhost", false},
                    WebsiteCase{"HttpFurtherIn", u"my-http", false},
                    WebsiteCase{"Empty", u"", false}, WebsiteCase{"Blanks", u" \n\t", false},
                    WebsiteCase{"SurroundedByBlanks", u" \nexample.org\n ", true},
                    WebsiteCase{"HttpBehindBlanks", u"  http", true}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_P(PortValidationTest, Decides)
{
    EXPECT_EQ(isValidHostAndPort(QString::fromUtf16(GetParam().host),
                                 QString::fromUtf16(GetParam().portText)),
              GetParam().isValid);
}

INSTANTIATE_TEST_SUITE_P(
    Table, PortValidationTest,
    testing::Values(PortCase{"HostAndPort", u"db", u"5432", true},
                    PortCase{"BeyondAllPorts", u"db", u"70000", true},
                    PortCase{"SmallestPort", u"db", u"1", true},
                    PortCase{"SignedPort", u"db", u"+5432", true},
                    PortCase{"BlanksAroundHost", u" db\n", u"5432", true},
                    PortCase{"NoHost", u"", u"5432", false},
                    PortCase{"BlankHost", u" \t", u"5432", false},
                    PortCase{"NoPort", u"db", u"", false}, PortCase{"PortZero", u"db", u"0", false},
                    PortCase{"NegativePort", u"db", u"-1", false},
                    PortCase{"BlankInPort", u"db", u" 5432", false},
                    PortCase{"PortBeyondIntegers", u"db", u"99999999999999999999", false},
                    PortCase{"NamedPort", u"db", u"postgres", false}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
