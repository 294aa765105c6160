#include "DateListener.h"
#include "FetchFixture.h"
#include "HostileBehaviours.h"
#include "NginxServer.h"
#include "Printers.h"
#include "ProxyEnvironment.h"
#include "TlsBehaviours.h"
#include "TlsDelegate.h"

#include <gmock/gmock.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::IsEmpty;
using testing::Not;

/// A proxy that speaks TLS. Its authority is trusted, and its certificate's date must not be
/// reported.
class TlsProxyTest : public testing::Test
{
protected:
    [[nodiscard]] HttpResult fetch(const QByteArray &url)
    {
        HttpRequest request = requestFor(url);
        request.tlsDelegate = m_listener;
        return m_network.fetch(request).result();
    }
    [[nodiscard]] const std::vector<std::chrono::sys_seconds> &dates() const
    {
        return m_listener->dates;
    }

    /// Sends all requests, over TLS, to the server that listens on @p port.
    void useProxy(quint16 port)
    {
        m_terminator = std::make_unique<HostileServer>(terminateTls(m_proxyLeaf, port),
                                                       HostileServer::Greeting::None);
        for (const char *name : {"http_proxy", "https_proxy"})
            qputenv(name, m_terminator->url("/", "https"));
    }

    TestCertificates m_certificates;
    TestLeaf m_proxyLeaf = m_certificates.validFor(std::chrono::hours(999));

private:
    ProxyEnvironment m_environment; ///< Empty at first.
    CurlNetwork m_network{IoThreadConfiguration{
        .trustStore = {.directory = {}, .file = m_certificates.authorityFile()}}};
    std::shared_ptr<DateListener> m_listener = std::make_shared<DateListener>();
    std::unique_ptr<HostileServer> m_terminator;
};

TEST_F(TlsProxyTest, APlainHttpSiteBehindItReportsNoDate)
{
    const HostileServer proxy(answerWith("from the proxy"));
    useProxy(proxy.port());
    const HttpResult result = fetch("http://shop.example/");
    EXPECT_EQ(result.body, "from the proxy") << result.error.toStdString();
    EXPECT_THAT(dates(), IsEmpty());
}

TEST_F(TlsProxyTest, ASiteBehindItReportsItsOwnDate)
{
    const TestLeaf leaf = m_certificates.forAnotherHost();
    const NginxServer server({NginxSite{.leaf = leaf}});
    const HostileServer proxy(tunnelInto({{"elsewhere.example:443", server.port()}}));
    useProxy(proxy.port());
    const HttpResult result = fetch("https://elsewhere.example/");
    EXPECT_EQ(result.statusCode, 200) << result.error.toStdString();
    EXPECT_THAT(dates(), Not(IsEmpty()));
    EXPECT_THAT(dates(), Each(leaf.notAfter));
}

TEST_F(TlsProxyTest, ItsOwnDateIsNotReportedIfItRefusesTheTunnel)
{
    const HostileServer proxy(tunnelInto({}));
    useProxy(proxy.port());
    const HttpResult result = fetch("https://elsewhere.example/");
    EXPECT_FALSE(result.hasResponse);
    EXPECT_THAT(dates(), IsEmpty());
}

TEST_F(TlsProxyTest, ItsCertificateMustBeTrusted)
{
    const HostileServer proxy(answerWith("from the proxy"));
    m_proxyLeaf = m_certificates.selfSigned();
    useProxy(proxy.port());
    EXPECT_FALSE(fetch("http://shop.example/").hasResponse);
    EXPECT_THAT(dates(), IsEmpty());
}

TEST_F(TlsProxyTest, ARedirectFromSiteToSiteReportsTheirDatesOnly)
{
    const TestLeaf leaf = m_certificates.forAnotherHost();
    const NginxServer server(
        {NginxSite{.leaf = leaf,
                   .directives = "location / { return 302 https://elsewhere.example/there; }"
                                 "location /there { return 200 OK; }"}});
    const HostileServer proxy(tunnelInto({{"elsewhere.example:443", server.port()}}));
    useProxy(proxy.port());
    EXPECT_EQ(fetch("https://elsewhere.example/").statusCode, 200);
    EXPECT_THAT(dates(), Not(IsEmpty()));
    EXPECT_THAT(dates(), Each(leaf.notAfter));
}

class ProxyTest : public FetchFixture
{
private:
    ProxyEnvironment m_environment; ///< Empty at first.
};

TEST_F(ProxyTest, IsNotUsedForAddressesOfThisComputer)
{
    const HostileServer proxy(answerWith("from the proxy"));
    const HostileServer server(answerWith("from the site"));
    const QByteArray port = QByteArray::number(server.port());
    qputenv("http_proxy", proxy.url());
    qputenv("no_proxy", "example.org");
    for (const char *host : {"127.0.0.1", "localhost", "LocalHost", "127.1"})
        EXPECT_EQ(fetch("http://" + QByteArray(host) + ":" + port + "/").body, "from the site")
            << host;
    EXPECT_EQ(fetch("http://shop.example/").body, "from the proxy");
}

TEST_F(ProxyTest, IsNotUsedForExceptions)
{
    const HostileServer proxy(answerWith("from the proxy"));
    qputenv("http_proxy", proxy.url());
    qputenv("no_proxy", "example.org,behind.invalid");
    EXPECT_EQ(fetch("http://behind.invalid/").error, u"Could not resolve host: behind.invalid"_s);
    EXPECT_EQ(fetch("http://before.invalid/").body, "from the proxy");
}

TEST_F(ProxyTest, IsChosenForEachHop)
{
    const HostileServer proxy(redirectTo("http://127.0.0.1:1/"));
    qputenv("http_proxy", proxy.url());
    const HttpResult result = fetch("http://shop.example/");
    EXPECT_THAT(result.error.toStdString(),
                testing::StartsWith("Failed to connect to 127.0.0.1 port 1"));
    EXPECT_EQ(proxy.requests().size(), 1);
}

TEST_F(ProxyTest, ThatCantBeResolvedIsNamedInTheError)
{
    qputenv("http_proxy", "http://proxy.invalid:3128");
    EXPECT_EQ(fetch("http://shop.example/").error, u"Could not resolve proxy: proxy.invalid"_s);
}

TEST_F(ProxyTest, WithAnInvalidAddressIsAnError)
{
    qputenv("http_proxy", "http://[broken");
    const HttpResult result = fetch("http://shop.example/");
    EXPECT_FALSE(result.hasResponse);
    EXPECT_FALSE(result.error.isEmpty());
}

} // namespace

} // namespace ostrel::test
