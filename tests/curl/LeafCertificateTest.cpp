#include "DateListener.h"
#include "FetchFixture.h"
#include "HostileBehaviours.h"
#include "NginxServer.h"
#include "Printers.h"
#include "TlsDelegate.h"

#include <gmock/gmock.h>

#include <vector>

namespace ostrel::test {

namespace {

using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

enum class TrustIn { File, Directory };

class LeafCertificateTest : public testing::TestWithParam<TrustIn>
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

    TestCertificates m_certificates;

private:
    [[nodiscard]] TrustStore trustStore() const
    {
        if (GetParam() == TrustIn::File)
            return {.directory = {}, .file = m_certificates.authorityFile()};
        return {.directory = m_certificates.authorityDirectory(), .file = {}};
    }

    CurlNetwork m_network{IoThreadConfiguration{.trustStore = trustStore()}};
    std::shared_ptr<DateListener> m_listener = std::make_shared<DateListener>();
};

INSTANTIATE_TEST_SUITE_P(TrustIn, LeafCertificateTest,
                         testing::Values(TrustIn::File, TrustIn::Directory), [](const auto &test) {
                             return test.param == TrustIn::File ? "File" : "Directory";
                         });

/// The expected result for a leaf that can't be trusted.
#define EXPECT_REFUSED_WITH_DATE(result, leaf, reason)                                             \
    EXPECT_FALSE((result).hasResponse);                                                            \
    EXPECT_THAT((result).error.toStdString(), HasSubstr(reason));                                  \
    EXPECT_THAT(dates(), Not(IsEmpty()));                                                          \
    EXPECT_THAT(dates(), Each((leaf).notAfter))

TEST_P(LeafCertificateTest, ValidEcdsaLeafReportsItsDate)
{
    const TestLeaf leaf = m_certificates.valid(TestCertificates::Key::Ecdsa);
    const NginxServer server({NginxSite{.leaf = leaf}});
    const HttpResult result = fetch(server.url());
    EXPECT_EQ(result.statusCode, 200) << result.error.toStdString();
    EXPECT_THAT(dates(), Not(IsEmpty()));
    EXPECT_THAT(dates(), Each(leaf.notAfter));
}

TEST_P(LeafCertificateTest, ValidRsaLeafReportsItsDate)
{
    const TestLeaf leaf = m_certificates.valid(TestCertificates::Key::Rsa);
    const NginxServer server({NginxSite{.leaf = leaf}});
    const HttpResult result = fetch(server.url());
    EXPECT_EQ(result.statusCode, 200) << result.error.toStdString();
    EXPECT_THAT(dates(), Not(IsEmpty()));
    EXPECT_THAT(dates(), Each(leaf.notAfter));
}

TEST_P(LeafCertificateTest, ExpiredLeafFailsAndReportsItsDate)
{
    const TestLeaf leaf = m_certificates.expired();
    const NginxServer server({NginxSite{.leaf = leaf}});
    const HttpResult result = fetch(server.url());
    EXPECT_REFUSED_WITH_DATE(result, leaf, "SSL certificate problem: certificate has expired");
}

TEST_P(LeafCertificateTest, SelfSignedLeafFailsAndReportsItsDate)
{
    const TestLeaf leaf = m_certificates.selfSigned();
    const NginxServer server({NginxSite{.leaf = leaf}});
    const HttpResult result = fetch(server.url());
    EXPECT_REFUSED_WITH_DATE(result, leaf, "SSL certificate problem: self-signed certificate");
}

TEST_P(LeafCertificateTest, LeafOfAnUnknownAuthorityFailsAndReportsItsDate)
{
    TestCertificates others;
    const TestLeaf leaf = others.underShortLivedIntermediate();
    const NginxServer server({NginxSite{.leaf = leaf}});
    const HttpResult result = fetch(server.url());
    EXPECT_REFUSED_WITH_DATE(result, leaf, "SSL certificate problem");
}

TEST_P(LeafCertificateTest, LeafForAnotherHostFailsAndReportsItsDate)
{
    const TestLeaf leaf = m_certificates.forAnotherHost();
    const NginxServer server({NginxSite{.leaf = leaf}});
    const HttpResult result = fetch(server.url());
    EXPECT_REFUSED_WITH_DATE(result, leaf, "SSL: no alternative certificate subject name matches");
}

TEST_P(LeafCertificateTest, ChainOfThreeReportsTheLeafsDateThoughTheIntermediateEndsSooner)
{
    const TestLeaf leaf = m_certificates.underShortLivedIntermediate();
    const NginxServer server({NginxSite{.leaf = leaf}});
    const HttpResult result = fetch(server.url());
    EXPECT_EQ(result.statusCode, 200) << result.error.toStdString();
    EXPECT_THAT(dates(), Not(IsEmpty()));
    EXPECT_THAT(dates(), Each(leaf.notAfter));
}

TEST_P(LeafCertificateTest, FailureAboveTheLeafReportsTheLeafsDate)
{
    const TestLeaf leaf = m_certificates.underExpiredIntermediate();
    const NginxServer server({NginxSite{.leaf = leaf}});
    const HttpResult result = fetch(server.url());
    EXPECT_REFUSED_WITH_DATE(result, leaf, "SSL certificate problem: certificate has expired");
}

TEST_P(LeafCertificateTest, RedirectToAnotherTlsHostReportsTheSecondsDateLast)
{
    const TestLeaf first = m_certificates.valid();
    const TestLeaf second = m_certificates.validFor(std::chrono::hours(777));
    const NginxServer server(
        {NginxSite{.leaf = first, .directives = "return 302 https://127.0.0.1:PORT_1/;"},
         NginxSite{.leaf = second}});
    EXPECT_EQ(fetch(server.url()).statusCode, 200);
    ASSERT_THAT(dates(), Not(IsEmpty()));
    EXPECT_EQ(dates().front(), first.notAfter);
    EXPECT_EQ(dates().back(), second.notAfter);
}

TEST_P(LeafCertificateTest, EveryRequestReportsTheCertificateAgain)
{
    const TestLeaf leaf = m_certificates.valid();
    const NginxServer server({NginxSite{.leaf = leaf}});
    (void)fetch(server.url());
    const std::size_t afterFirst = dates().size();
    (void)fetch(server.url());
    EXPECT_EQ(dates().size(), 2 * afterFirst);
}

TEST_P(LeafCertificateTest, PlainHttpReportsNoDate)
{
    const NginxServer server({NginxSite{}});
    EXPECT_EQ(fetch(server.url()).statusCode, 200);
    EXPECT_THAT(dates(), IsEmpty());
}

TEST_P(LeafCertificateTest, AnInvalidCertificateReportsNoDate)
{
    const HostileServer server(sendBrokenCertificate, HostileServer::Greeting::None);
    const HttpResult result = fetch(server.url("/", "https"));
    EXPECT_FALSE(result.hasResponse);
    EXPECT_FALSE(result.error.isEmpty());
    EXPECT_THAT(dates(), IsEmpty());
}

TEST_P(LeafCertificateTest, ADelegateIsOptional)
{
    const NginxServer server({NginxSite{.leaf = m_certificates.valid()}});
    CurlNetwork network({.trustStore = {.directory = {}, .file = m_certificates.authorityFile()}});
    EXPECT_EQ(network.fetch(requestFor(server.url())).result().statusCode, 200);
}

} // namespace

} // namespace ostrel::test
