#include "LazyNetwork.h"

#include "HostileBehaviours.h"
#include "WaitFor.h"

#include <QFile>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <thread>
#include <vector>

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

QString networkFile()
{
    return QStringLiteral(OSTREL_NETWORK_FILE);
}

HttpRequest requestFor(const QByteArray &url)
{
    return {.url = url,
            .method = "GET",
            .userAgent = "Tester/1.0",
            .timeout = 20s,
            .bodyLimit = 1024,
            .tlsDelegate = nullptr};
}

/// Whether this process has a library of that name in its memory.
bool hasLoaded(const QByteArray &name)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(name);
}

} // namespace

TEST(LazyNetworkTest, NothingIsLoadedBeforeItIsNeeded)
{
    LazyNetwork network(networkFile());
    network.dropConnections();
    EXPECT_FALSE(hasLoaded("/ostrel-network"));
    EXPECT_FALSE(hasLoaded("/libcurl"));

    const HostileServer server(answerWith("welcome"));
    EXPECT_EQ(network.fetch(requestFor(server.url())).result().statusCode, 200);

    EXPECT_TRUE(hasLoaded("/ostrel-network"));
    EXPECT_TRUE(hasLoaded("/libcurl"));
}

TEST(LazyNetworkTest, PagesAndPortsAreAnswered)
{
    const HostileServer server(answerWith("welcome"));
    LazyNetwork network(networkFile());
    EXPECT_TRUE(
        network.connect(QStringLiteral("127.0.0.1"), server.port(), 20s).result().isConnected);
    EXPECT_FALSE(
        network.connect(QStringLiteral("127.0.0.1"), closedPort(), 20s).result().isConnected);
    EXPECT_EQ(network.fetch(requestFor(server.url())).result().body, "welcome");
}

TEST(LazyNetworkTest, ManyThreadsMayAskFirst)
{
    const HostileServer server(answerWith("welcome"));
    LazyNetwork network(networkFile());
    std::vector<std::thread> threads(4);
    std::atomic<int> answers = 0;
    for (std::thread &thread : threads) {
        thread = std::thread([&] {
            if (network.fetch(requestFor(server.url())).result().body == "welcome")
                ++answers;
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(answers, 4);
}

TEST(LazyNetworkTest, ItsEndCancelsWhatIsUnderWay)
{
    const HostileServer server(staySilent);
    QFuture<HttpResult> page;
    {
        LazyNetwork network(networkFile());
        page = network.fetch(requestFor(server.url()));
    }
    EXPECT_TRUE(page.isCanceled());
}

namespace {

/// Reads for ever, once it has begun.
class StuckReader : public BodyReader
{
public:
    void begin() override {}
    void read(QByteArrayView bytes) override
    {
        Q_UNUSED(bytes)
        isReading = true;
        for (;;)
            std::this_thread::sleep_for(1h);
    }

    std::atomic<bool> isReading = false;
};

/// As main.cpp does, while a page is being read.
void endTheProgramWhileReading()
{
    const HostileServer server(answerWith("welcome"));
    {
        LazyNetwork network(networkFile());
        const auto reader = std::make_shared<StuckReader>();
        HttpRequest request = requestFor(server.url());
        request.bodyReader = reader;
        const auto page = network.fetch(request);
        if (!waitFor([&] { return reader->isReading.load(); }))
            std::_Exit(1);
    }
    std::_Exit(LazyNetwork::isAnyLeftBehind() ? 42 : 2);
}

} // namespace

TEST(LazyNetworkDeathTest, TheEndDoesNotWaitForABodyThatIsBeingRead)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EXIT(endTheProgramWhileReading(), testing::ExitedWithCode(42), "");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
}

TEST(LazyNetworkTest, WhatHasEndedIsNotLeftBehind)
{
    const HostileServer server(answerWith("welcome"));
    {
        LazyNetwork network(networkFile());
        EXPECT_EQ(network.fetch(requestFor(server.url())).result().body, "welcome");
    }
    EXPECT_FALSE(LazyNetwork::isAnyLeftBehind());
}

TEST(LazyNetworkDeathTest, WithoutItsLibraryTheProgramSaysSoAndEnds)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto ask = [] {
        LazyNetwork network(QStringLiteral("/nowhere/ostrel-network.so"));
        (void)network.fetch(requestFor("http://127.0.0.1/")).isFinished();
        std::this_thread::sleep_for(5s);
    };
    EXPECT_EXIT(ask(), testing::ExitedWithCode(127),
                "ostrel: the network can't be used: .*nowhere");
}

} // namespace ostrel::test
