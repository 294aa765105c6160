#include "FetchFixture.h"
#include "HostileBehaviours.h"
#include "Printers.h"

#include <gmock/gmock.h>

#include <memory>
#include <utility>
#include <vector>

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

constexpr auto timeout = 400ms;
/// The time-out itself is under test here, so these tests read the clock.
constexpr auto grace = 500ms;

HttpRequest hastyRequestFor(const QByteArray &url)
{
    return requestWithin(timeout, url);
}

struct Hostility
{
    const char *name;
    HostileServer::Behaviour behaviour;
    HostileServer::Greeting greeting = HostileServer::Greeting::ReadRequest;
    const char *scheme = "http";
    bool lastsUntilTheTimeout = true;
};

void PrintTo(const Hostility &example, std::ostream *out)
{
    *out << example.name;
}

class HttpFetchHostileTest : public FetchFixture, public testing::WithParamInterface<Hostility>
{
};

TEST_P(HttpFetchHostileTest, EndsInTimeWithOneError)
{
    const HostileServer server(GetParam().behaviour, GetParam().greeting);
    const auto start = std::chrono::steady_clock::now();
    QFuture<HttpResult> future =
        m_network.fetch(hastyRequestFor(server.url("/0", GetParam().scheme)));
    future.waitForFinished();
    EXPECT_LE(std::chrono::steady_clock::now() - start, timeout + grace);

    ASSERT_EQ(future.resultCount(), 1);
    const HttpResult result = future.result();
    EXPECT_FALSE(result.hasResponse);
    EXPECT_FALSE(result.error.isEmpty());
    EXPECT_FALSE(result.error.contains(u'\n'));
    if (GetParam().lastsUntilTheTimeout) {
        EXPECT_GE(result.elapsed, timeout);
        EXPECT_THAT(result.error.toStdString(),
                    testing::ContainsRegex("timed out after [4-9][0-9][0-9] milli"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, HttpFetchHostileTest,
    testing::Values(
        Hostility{"SilentAfterTheRequest", staySilent},
        Hostility{"SilentInTheTlsHandshake", staySilent, HostileServer::Greeting::None, "https"},
        Hostility{"DrippingBytes", dripBytes}, Hostility{"EndlessBody", sendEndlessBody},
        Hostility{"EndlessGzipBomb", sendEndlessGzipBomb},
        Hostility{"EndlessHeaders", sendEndlessHeaders, HostileServer::Greeting::ReadRequest,
                  "http", false},
        Hostility{"EndlessHeaderLine", sendEndlessHeaderLine, HostileServer::Greeting::ReadRequest,
                  "http", false},
        Hostility{"EndlessRedirects", redirectEndlessly, HostileServer::Greeting::ReadRequest,
                  "http", false},
        Hostility{"EndlessZstdBomb", sendEndlessZstdBomb},
        Hostility{"Garbage", sendGarbage, HostileServer::Greeting::ReadRequest, "http", false},
        Hostility{"GarbageInTheTlsHandshake", sendGarbage, HostileServer::Greeting::None, "https",
                  false},
        Hostility{"ResetInBody", resetInBody, HostileServer::Greeting::ReadRequest, "http", false},
        Hostility{"BrokenCertificate", sendBrokenCertificate, HostileServer::Greeting::None,
                  "https", false}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(HttpFetchCrowdTest, EachOfManyHostileServersEndsInTime)
{
    const std::vector<std::pair<HostileServer::Behaviour, const char *>> behaviours = {
        {staySilent, "http"},         {staySilent, "https"},       {dripBytes, "http"},
        {sendEndlessHeaders, "http"}, {redirectEndlessly, "http"}, {sendEndlessHeaderLine, "http"},
        {sendEndlessBody, "http"},    {sendGarbage, "https"},
    };
    constexpr int ofEach = 22;
    std::vector<std::unique_ptr<HostileServer>> servers;
    CurlNetwork network({.maxConcurrentTransfers = 1000});
    std::vector<QFuture<HttpResult>> futures;
    for (int i = 0; i < ofEach; ++i) {
        for (const auto &[behaviour, scheme] : behaviours) {
            servers.push_back(std::make_unique<HostileServer>(behaviour));
            futures.push_back(network.fetch(hastyRequestFor(servers.back()->url("/0", scheme))));
        }
    }
    for (const QFuture<HttpResult> &future : futures) {
        const HttpResult result = future.result();
        EXPECT_FALSE(result.hasResponse);
        EXPECT_LE(result.elapsed, timeout + grace) << result.error.toStdString();
    }
}

class HttpFetchTimeoutTest : public FetchFixture
{
};

TEST_F(HttpFetchTimeoutTest, BoundsTheRedirectsTogether)
{
    // Each hop alone would be within the time-out.
    const HostileServer server([](HostileConnection &connection, const SeenRequest &request) {
        if (connection.pause(150ms))
            redirectEndlessly(connection, request);
    });
    const HttpResult result = fetch(hastyRequestFor(server.url("/0")));
    EXPECT_FALSE(result.hasResponse);
    EXPECT_GE(result.elapsed, timeout);
    EXPECT_LE(result.elapsed, timeout + grace);
}

TEST_F(HttpFetchTimeoutTest, BoundsTheConnect)
{
    const BlackholePort target;
    const QByteArray url = "http://127.0.0.1:" + QByteArray::number(target.port()) + "/";
    const HttpResult result = fetch(hastyRequestFor(url));
    EXPECT_GE(result.elapsed, timeout);
    EXPECT_LE(result.elapsed, timeout + grace);
    EXPECT_THAT(result.error.toStdString(),
                testing::ContainsRegex("after [4-9][0-9][0-9] (ms|milliseconds)"));
}

TEST_F(HttpFetchTimeoutTest, IsNeverReportedEarly)
{
    const HostileServer server(staySilent);
    for (int i = 0; i < 20; ++i) {
        HttpRequest request = requestFor(server.url());
        request.timeout = std::chrono::milliseconds(5 + i);
        EXPECT_GE(fetch(request).elapsed, request.timeout);
    }
}

TEST_F(HttpFetchTimeoutTest, OfZeroOrLessIsTheShortest)
{
    const HostileServer server(staySilent);
    for (const auto shortest : {0ms, -1ms, -1000000ms, std::chrono::milliseconds::min()}) {
        HttpRequest request = requestFor(server.url());
        request.timeout = shortest;
        const HttpResult result = fetch(request);
        EXPECT_FALSE(result.hasResponse);
        EXPECT_GE(result.elapsed, 1ms);
        EXPECT_LE(result.elapsed, grace);
    }
}

TEST_F(HttpFetchTimeoutTest, OfYearsNeverExpires)
{
    const HostileServer server(answerAfter(20ms));
    for (const std::chrono::milliseconds longest :
         {std::chrono::milliseconds(std::chrono::years(100)), std::chrono::milliseconds::max()}) {
        HttpRequest request = requestFor(server.url());
        request.timeout = longest;
        EXPECT_TRUE(fetch(request).hasResponse);
    }
}

} // namespace

} // namespace ostrel::test
