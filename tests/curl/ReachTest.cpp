#include "FetchFixture.h"
#include "HostileBehaviours.h"
#include "Printers.h"
#include "ProxyEnvironment.h"

#include <gmock/gmock.h>

#include <arpa/inet.h>
#include <cstring>
#include <netinet/in.h>

namespace ostrel::test {

namespace {

/// Treats 127.0.0.2 as a public address, though it is this computer.
bool isSecondLoopback(const sockaddr &address)
{
    sockaddr_in address4{};
    std::memcpy(&address4, &address, sizeof(address4));
    return address.sa_family == AF_INET && address4.sin_addr.s_addr == htonl(0x7f000002);
}

class ReachTest : public FetchFixture
{
protected:
    ReachTest()
        : FetchFixture({.isPublicAddress = isSecondLoopback})
    {
    }

    [[nodiscard]] QByteArray publicUrl(const QByteArray &path) const
    {
        return "http://127.0.0.2:" + QByteArray::number(m_public.port()) + path;
    }
    [[nodiscard]] QByteArray privateUrl(const QByteArray &path) const
    {
        return m_private.url(path);
    }
    [[nodiscard]] HttpResult fetchWithin(Reach reach, const QByteArray &url)
    {
        HttpRequest request = requestFor(url);
        request.reach = reach;
        return fetch(request);
    }

    /// "/to-public" and "/to-private" redirect to the respective server, "/both" to the public and
    /// then to the private one; any other path is answered.
    const HostileServer::Behaviour m_behaviour = [this](HostileConnection &connection,
                                                        const SeenRequest &request) {
        if (request.target == "/to-public")
            redirectTo(publicUrl("/"))(connection, request);
        else if (request.target == "/to-private")
            redirectTo(privateUrl("/"))(connection, request);
        else if (request.target == "/both")
            redirectTo(publicUrl("/to-private"))(connection, request);
        else
            connection.respond("200 OK", "OK");
    };
    const HostileServer m_private{m_behaviour};
    const HostileServer m_public{m_behaviour, HostileServer::Greeting::ReadRequest,
                                 LoopbackFamily::SecondIpv4};

private:
    ProxyEnvironment m_environment; ///< Empty at first.
};

struct Way
{
    QByteArray url;
    Reach reach;
    bool arrives;
    bool isPublic;
};

TEST_F(ReachTest, LimitsEveryHop)
{
    for (const Way &way : {
             Way{publicUrl("/"), Reach::everywhere, true, true},
             Way{privateUrl("/"), Reach::everywhere, true, false},
             Way{publicUrl("/to-private"), Reach::everywhere, true, false},
             Way{privateUrl("/to-public"), Reach::everywhere, true, true},
             Way{publicUrl("/"), Reach::outwards, true, true},
             Way{privateUrl("/"), Reach::outwards, true, false},
             Way{privateUrl("/to-private"), Reach::outwards, true, false},
             Way{privateUrl("/to-public"), Reach::outwards, true, true},
             Way{publicUrl("/to-private"), Reach::outwards, false, false},
             Way{privateUrl("/both"), Reach::outwards, false, false},
             Way{publicUrl("/"), Reach::publicOnly, true, true},
             Way{publicUrl("/to-public"), Reach::publicOnly, true, true},
             Way{privateUrl("/"), Reach::publicOnly, false, false},
             Way{publicUrl("/to-private"), Reach::publicOnly, false, false},
         }) {
        const HttpResult result = fetchWithin(way.reach, way.url);
        EXPECT_EQ(result.hasResponse, way.arrives) << way.url.toStdString() << int(way.reach);
        EXPECT_EQ(result.isFromPublicAddress, way.isPublic) << way.url.toStdString();
        EXPECT_EQ(result.error.isEmpty(), way.arrives) << result.error.toStdString();
    }
}

TEST_F(ReachTest, ARefusedAddressIsNeverConnectedTo)
{
    const HttpResult result = fetchWithin(Reach::publicOnly, privateUrl("/"));
    EXPECT_THAT(result.error.toStdString(), testing::StartsWith("Failed to connect to 127.0.0.1"));
    EXPECT_EQ(m_private.connectionCount(), 0);
}

TEST_F(ReachTest, ANameIsJudgedByTheAddressThatItResolvesTo)
{
    const QByteArray url = "http://localhost:" + QByteArray::number(m_private.port()) + "/";
    EXPECT_FALSE(fetchWithin(Reach::publicOnly, url).hasResponse);
    EXPECT_TRUE(fetchWithin(Reach::outwards, url).hasResponse);
    EXPECT_EQ(m_private.connectionCount(), 1);
}

TEST_F(ReachTest, BehindAProxyTheHostsOwnTextDecides)
{
    const HostileServer proxy(answerWith("from the proxy"));
    qputenv("http_proxy", proxy.url());
    struct Case
    {
        const char *host;
        bool isPublic;
    };
    for (const Case &example :
         {Case{"shop.example", true}, Case{"8.8.8.8", true}, Case{"nas", false},
          Case{"192.168.0.1", false}, Case{"0xc0a80001", false}, Case{"[fe80::1]", false}}) {
        const QByteArray url = QByteArray("http://") + example.host + "/";
        EXPECT_EQ(fetch(url).isFromPublicAddress, example.isPublic) << example.host;
        EXPECT_EQ(fetchWithin(Reach::publicOnly, url).hasResponse, example.isPublic)
            << example.host;
    }
}

} // namespace

} // namespace ostrel::test
