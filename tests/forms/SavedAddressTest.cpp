#include "SavedAddress.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

struct WebsiteCase
{
    const char *name;
    const char16_t *typed;
    const char16_t *address;
    const char16_t *derivedName;
};

class WebsiteAddressTest : public testing::TestWithParam<WebsiteCase>
{
};

struct PortCase
{
    const char *name;
    const char16_t *host;
    const char16_t *portText;
    const char16_t *address;
    const char16_t *derivedName;
};

class PortAddressTest : public testing::TestWithParam<PortCase>
{
};

} // namespace

TEST_P(WebsiteAddressTest, IsSavedAndNamed)
{
    const WebsiteCase &c = GetParam();
    const QString address = savedAddress(MonitorType::http, QString::fromUtf16(c.typed));
    EXPECT_EQ(address, QString::fromUtf16(c.address));
    EXPECT_EQ(derivedName(address), QString::fromUtf16(c.derivedName));
}

INSTANTIATE_TEST_SUITE_P(
    Table, WebsiteAddressTest,
    testing::Values(
        WebsiteCase{"DomainGetsASecureScheme", u"example.org", u"https://example.org",
                    u"example.org"},
        WebsiteCase{"LeadingWwwIsNoPartOfTheName", u"www.example.org", u"https://www.example.org",
                    u"example.org"},
        WebsiteCase{"HostBeginningWithHttpStaysAsWritten", u"httpbin.local", u"httpbin.local",
                    u"httpbin.local"},
        WebsiteCase{"HostBeginningWithHttpAndPath", u"httpbin.local/get", u"httpbin.local/get",
                    u"httpbin.local"},
        WebsiteCase{"EveryWwwIsRemoved", u"a.www.www.example.org", u"https://a.www.www.example.org",
                    u"a.example.org"},
        WebsiteCase{"WwwInsideALabel", u"awww.example.org", u"https://awww.example.org",
                    u"aexample.org"},
        WebsiteCase{"WwwAlone", u"www.", u"https://www.", u""},
        WebsiteCase{"SchemeStays", u"http://localhost:3000", u"http://localhost:3000",
                    u"localhost"},
        WebsiteCase{"SchemeWordAlone", u"http", u"http", u"http"},
        WebsiteCase{"SurroundedByBlanks", u" \n example.org/path \n", u"https://example.org/path",
                    u"example.org"},
        WebsiteCase{"PortAndPathAreNoPartOfTheName", u"https://shop.example:8443/a?b#c",
                    u"https://shop.example:8443/a?b#c", u"shop.example"},
        WebsiteCase{"InternetProtocol6", u"http://[::1]:8080/", u"http://[::1]:8080/", u"::1"},
        WebsiteCase{"UpperCaseSchemeIsNone", u"HTTP://a.b", u"https://HTTP://a.b", u"http"}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_P(PortAddressTest, IsSavedAndNamed)
{
    const PortCase &c = GetParam();
    const QString address = savedAddress(MonitorType::port, QString::fromUtf16(c.host));
    EXPECT_EQ(address, QString::fromUtf16(c.address));
    EXPECT_EQ(derivedPortName(address, QString::fromUtf16(c.portText)),
              QString::fromUtf16(c.derivedName));
}

INSTANTIATE_TEST_SUITE_P(
    Table, PortAddressTest,
    testing::Values(PortCase{"HostAndPort", u"db", u"5432", u"db", u"db:5432"},
                    PortCase{"HostIsTrimmed", u" db\n", u"5432", u"db", u"db:5432"},
                    PortCase{"PortKeepsItsBlank", u"db", u" 5432", u"db", u"db: 5432"},
                    PortCase{"PortKeepsItsSign", u"db", u"+5432", u"db", u"db:+5432"},
                    PortCase{"NoSchemeIsAdded", u"db.example.org", u"5432", u"db.example.org",
                             u"db.example.org:5432"},
                    PortCase{"BareWwwStays", u"www.example.org", u"80", u"www.example.org",
                             u"www.example.org:80"},
                    PortCase{"AddressNamesItsHost", u"https://www.example.org/x", u"443",
                             u"https://www.example.org/x", u"example.org:443"},
                    PortCase{"OnlyWhatComesBeforeTheSlash", u"db/x", u"80", u"db/x", u"db:80"},
                    PortCase{"InternetProtocol6", u"::1", u"22", u"::1", u"::1:22"}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
