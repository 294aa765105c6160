#include "Proxies.h"

#include "Printers.h"
#include "ProxyEnvironment.h"
#include "WebAddress.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

class ProxiesTest : public testing::Test
{
protected:
    [[nodiscard]] static QByteArray proxyFor(const QByteArray &url)
    {
        return Proxies::fromEnvironment().proxyFor(*WebAddress::parse(url));
    }

private:
    ProxyEnvironment m_environment; ///< Empty at first.
};

TEST_F(ProxiesTest, WithoutVariablesThereIsNoProxy)
{
    EXPECT_EQ(proxyFor("http://example.com/"), "");
    EXPECT_EQ(proxyFor("https://example.com/"), "");
}

TEST_F(ProxiesTest, EachSchemeHasItsOwnProxy)
{
    qputenv("http_proxy", "one:1");
    qputenv("https_proxy", "two:2");
    qputenv("all_proxy", "three:3");
    EXPECT_EQ(proxyFor("http://example.com/"), "one:1");
    EXPECT_EQ(proxyFor("https://example.com/"), "two:2");
}

TEST_F(ProxiesTest, OneProxyMayServeAllSchemes)
{
    for (const char *name : {"all_proxy", "ALL_PROXY"}) {
        qputenv(name, "three:3");
        EXPECT_EQ(proxyFor("http://example.com/"), "three:3") << name;
        EXPECT_EQ(proxyFor("https://example.com/"), "three:3") << name;
        qunsetenv(name);
    }
}

TEST_F(ProxiesTest, UpperCaseVariablesAreReadExceptForHttp)
{
    qputenv("HTTP_PROXY", "one:1");
    qputenv("HTTPS_PROXY", "two:2");
    EXPECT_EQ(proxyFor("http://example.com/"), "");
    EXPECT_EQ(proxyFor("https://example.com/"), "two:2");
    qputenv("https_proxy", "small:2");
    EXPECT_EQ(proxyFor("https://example.com/"), "small:2");
}

TEST_F(ProxiesTest, AddressesOfThisComputerHaveNoProxy)
{
    qputenv("all_proxy", "proxy:1");
    qputenv("no_proxy", "example.org");
    for (const char *host : {"localhost", "LOCALHOST", "localhost.", "app.localhost", "127.0.0.1",
                             "127.255.255.254", "127.1", "[::1]"})
        EXPECT_EQ(proxyFor(QByteArray("http://") + host + ":8080/"), "") << host;
    for (const char *host : {"128.0.0.1", "126.255.255.255", "[::2]", "localhost.example",
                             "192.168.0.1", "notlocalhost"})
        EXPECT_EQ(proxyFor(QByteArray("http://") + host + "/"), "proxy:1") << host;
}

TEST_F(ProxiesTest, ExceptionsHaveNoProxy)
{
    qputenv("all_proxy", "proxy:1");
    for (const char *name : {"no_proxy", "NO_PROXY"}) {
        qputenv(name, "example.org");
        EXPECT_EQ(proxyFor("http://example.org/"), "") << name;
        EXPECT_EQ(proxyFor("http://example.com/"), "proxy:1") << name;
        qunsetenv(name);
    }
}

struct Exception
{
    const char *list;
    const char *host;
    bool isExcepted;
};

TEST(ProxyExceptionTest, IsANameADomainSuffixAnAddressOrABlock)
{
    for (const Exception &example : {
             Exception{"*", "example.org", true},
             Exception{"", "example.org", false},
             Exception{"example.org", "example.org", true},
             Exception{"EXAMPLE.org", "Example.ORG", true},
             Exception{"example.org", "www.example.org", true},
             Exception{"example.org", "myexample.org", false},
             Exception{"example.org", "example.org.net", false},
             Exception{".example.org", "www.example.org", true},
             Exception{".example.org", "example.org", true},
             Exception{"example.org.", "example.org", true},
             Exception{"example.org", "example.org.", true},
             Exception{"a.net,example.org", "example.org", true},
             Exception{" a.net , example.org ", "example.org", true},
             Exception{"a.net example.org", "example.org", true},
             Exception{",,", "example.org", false},
             Exception{".", "example.org", false},
             Exception{"10.1.2.3", "10.1.2.3", true},
             Exception{"10.1.2.3", "10.1.2.30", false},
             Exception{"2.3", "10.1.2.3", false},
             Exception{"10.0.0.0/8", "10.255.0.1", true},
             Exception{"10.0.0.0/8", "11.0.0.1", false},
             Exception{"10.128.0.0/9", "10.128.0.1", true},
             Exception{"10.128.0.0/9", "10.127.255.255", false},
             Exception{"10.1.2.3/32", "10.1.2.3", true},
             Exception{"10.1.2.2/31", "10.1.2.3", true},
             Exception{"10.0.0.0/33", "10.0.0.0", false},
             Exception{"10.0.0.0/x", "10.0.0.0", false},
             Exception{"10.0.0.0/8/8", "10.0.0.1", false},
             Exception{"fd00::/8", "fd12::1", true},
             Exception{"fd00::/8", "[fd12::1]", true},
             Exception{"fd00::/8", "fe12::1", false},
             Exception{"[::1]", "::1", true},
             Exception{"10.0.0.0/8", "fd00::1", false},
             Exception{"example.org", "10.0.0.1", false},
         })
        EXPECT_EQ(isProxyException(example.list, example.host), example.isExcepted)
            << example.list << " " << example.host;
}

} // namespace

} // namespace ostrel::test
