#include "CurlNetwork.h"
#include "HostileBehaviours.h"
#include "LoopbackListener.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;

class TcpConnectTest : public testing::Test
{
protected:
    [[nodiscard]] TcpResult connect(const QString &host, quint16 port,
                                    std::chrono::milliseconds timeout = patience)
    {
        return m_network.connect(host, port, timeout).result();
    }

    CurlNetwork m_network;
};

TEST_F(TcpConnectTest, ConnectsToAnOpenPort)
{
    const LoopbackListener listener;
    const TcpResult result = connect(u"127.0.0.1"_s, listener.port());
    EXPECT_TRUE(result.isConnected);
    EXPECT_GT(result.elapsed, 0us);
}

TEST_F(TcpConnectTest, SendsNothing)
{
    const HostileServer server(answerWith("OK"));
    EXPECT_TRUE(connect(u"127.0.0.1"_s, server.port()).isConnected);
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(TcpConnectTest, ARefusalEndsTheAttemptBeforeTheTimeout)
{
    const TcpResult result = connect(u"127.0.0.1"_s, closedPort());
    EXPECT_FALSE(result.isConnected);
    EXPECT_GT(result.elapsed, 0us);
    EXPECT_LT(result.elapsed, patience);
}

TEST_F(TcpConnectTest, ATimeoutEndsTheAttempt)
{
    const BlackholePort target;
    const TcpResult result = connect(u"127.0.0.1"_s, target.port(), 300ms);
    EXPECT_FALSE(result.isConnected);
    EXPECT_GE(result.elapsed, 300ms);
    EXPECT_LE(result.elapsed, 800ms); // The time-out is under test.
}

TEST_F(TcpConnectTest, ATimeoutOfZeroOrLessIsTheShortest)
{
    const BlackholePort target;
    for (const auto timeout : {0ms, -1ms}) {
        const TcpResult result = connect(u"127.0.0.1"_s, target.port(), timeout);
        EXPECT_FALSE(result.isConnected);
        EXPECT_GE(result.elapsed, 1ms);
        EXPECT_LE(result.elapsed, 500ms); // The shortest time-out is under test.
    }
}

TEST_F(TcpConnectTest, ConnectsToAName)
{
    const LoopbackListener listener;
    EXPECT_TRUE(connect(u"localhost"_s, listener.port()).isConnected);
    EXPECT_TRUE(connect(u"LOCALHOST"_s, listener.port()).isConnected);
}

TEST_F(TcpConnectTest, ConnectsToIpv6)
{
    const LoopbackListener listener(LoopbackFamily::Ipv6);
    if (!listener.isListening())
        GTEST_SKIP() << "no IPv6 loopback address";
    EXPECT_TRUE(connect(u"::1"_s, listener.port()).isConnected);
}

TEST_F(TcpConnectTest, TriesBothFamiliesOfAName)
{
    // Of the name's addresses, only the one of this family has a listener.
    const LoopbackListener listener(LoopbackFamily::Ipv6);
    if (!listener.isListening())
        GTEST_SKIP() << "no IPv6 loopback address";
    EXPECT_TRUE(connect(u"localhost"_s, listener.port()).isConnected);
}

TEST_F(TcpConnectTest, AnInvalidHostFailsAtOnce)
{
    const LoopbackListener listener;
    for (const QString &host :
         {QString(), u" "_s, u"local host"_s, u"127.0.0.1 "_s, u"http://127.0.0.1"_s,
          u"127.0.0.1/path"_s, u"user@127.0.0.1"_s, u"127.0.0.1:80"_s, u"[::1]"_s, u"::g"_s,
          u"%6c%6f"_s, u"127.0.0.1\u0000x"_s}) {
        const QFuture<TcpResult> future = m_network.connect(host, listener.port(), 10s);
        ASSERT_TRUE(future.isFinished()) << host.toStdString();
        EXPECT_FALSE(future.result().isConnected) << host.toStdString();
        EXPECT_EQ(future.result().elapsed, 0us);
    }
}

TEST_F(TcpConnectTest, AnInternationalNameIsLookedUpInItsAsciiForm)
{
    // A resolver reads full-width letters as the plain ones.
    const LoopbackListener listener;
    EXPECT_TRUE(connect(u"ｌｏｃａｌｈｏｓｔ"_s, listener.port()).isConnected);
}

TEST_F(TcpConnectTest, NeverUsesAProxy)
{
    const LoopbackListener proxy;
    const QByteArray address = "http://127.0.0.1:" + QByteArray::number(proxy.port());
    for (const char *name : {"http_proxy", "https_proxy", "ALL_PROXY"})
        qputenv(name, address);
    EXPECT_FALSE(connect(u"127.0.0.1"_s, closedPort()).isConnected);
    for (const char *name : {"http_proxy", "https_proxy", "ALL_PROXY"})
        qunsetenv(name);
}

TEST_F(TcpConnectTest, PortZeroIsNotConnected)
{
    EXPECT_FALSE(connect(u"127.0.0.1"_s, 0).isConnected);
}

} // namespace

} // namespace ostrel::test
