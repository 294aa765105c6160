#include "HostAndPort.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

struct Case
{
    const char *name;
    const char16_t *text;
    std::optional<std::pair<const char16_t *, const char16_t *>> parts;
};

class HostAndPortTest : public testing::TestWithParam<Case>
{
};

std::optional<HostAndPort> expected(const Case &c)
{
    if (!c.parts)
        return std::nullopt;
    return HostAndPort{.host = QString::fromUtf16(c.parts->first),
                       .portText = QString::fromUtf16(c.parts->second)};
}

} // namespace

TEST_P(HostAndPortTest, Detects)
{
    EXPECT_EQ(detectHostAndPort(QString::fromUtf16(GetParam().text)), expected(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    Table, HostAndPortTest,
    testing::Values(
        Case{"HostWithPort", u"myhost:8080", {{u"myhost", u"8080"}}},
        Case{"Domain", u"db.local:5432", {{u"db.local", u"5432"}}},
        Case{"SmallestPort", u"myhost:1", {{u"myhost", u"1"}}},
        Case{"LargestPort", u"myhost:65535", {{u"myhost", u"65535"}}},
        Case{"SignedPort", u"myhost:+443", {{u"myhost", u"+443"}}},
        Case{"NoHost", u":8080", {{u"", u"8080"}}},
        Case{"BlankBeforeHost", u" myhost:80", {{u" myhost", u"80"}}},
        Case{"UpperCaseScheme", u"HTTP:80", {{u"HTTP", u"80"}}}, //
        Case{"PortZero", u"myhost:0", {}}, Case{"PortTooLarge", u"myhost:65536", {}},
        Case{"PortSeventyThousand", u"myhost:70000", {}},
        Case{"PortBeyondIntegers", u"myhost:99999999999999999999", {}},
        Case{"NegativePort", u"myhost:-80", {}}, Case{"NoPort", u"myhost:", {}},
        Case{"BlankBeforePort", u"myhost: 80", {}}, Case{"BlankBehindPort", u"myhost:80 ", {}},
        Case{"PortWithPath", u"host:8080/path", {}}, Case{"Address", u"https://host", {}},
        Case{"AddressWithPort", u"https://host:8080", {}}, Case{"SchemeAlone", u"http:80", {}},
        Case{"HostBeginningWithHttp", u"httpbin.local:80", {}}, Case{"ThreeParts", u"a:1:2", {}},
        Case{"InternetProtocol6", u"::1", {}}, Case{"NoColon", u"db.local", {}},
        Case{"Empty", u"", {}}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
