#include "LazyNetwork.h"

#include "HostileBehaviours.h"
#include "WaitFor.h"

#include <QFile>

#include <gtest/gtest.h>

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
    network.renewConnections();
    EXPECT_FALSE(hasLoaded("/ostrel-network"));
    EXPECT_FALSE(hasLoaded("/libcurl"));

    const HostileServer server(answerWith("welcome"));
    EXPECT_EQ(network.fetch(requestFor(server.url())).result().statusCode, 200);

    EXPECT_TRUE(hasLoaded("/ostrel-network"));
    EXPECT_TRUE(hasLoaded("/libcurl"));
}

TEST(LazyNetworkTest, WhatIsAskedBeforeAndAfterIsAnswered)
{
    const HostileServer server(answerWith("welcome"));
    LazyNetwork network(networkFile());
    std::vector<QFuture<HttpResult>> pages;
    std::vector<QFuture<TcpResult>> ports;
    for (int i = 0; i < 8; ++i) {
        pages.push_back(network.fetch(requestFor(server.url())));
        ports.push_back(network.connect(QStringLiteral("127.0.0.1"), server.port(), 20s));
    }
    for (const auto &page : pages)
        EXPECT_EQ(page.result().body, "welcome");
    for (const auto &port : ports)
        EXPECT_TRUE(port.result().isConnected);

    EXPECT_EQ(network.fetch(requestFor(server.url())).result().body, "welcome");
    EXPECT_FALSE(
        network.connect(QStringLiteral("127.0.0.1"), closedPort(), 20s).result().isConnected);
}

TEST(LazyNetworkTest, ManyThreadsMayAskFirst)
{
    const HostileServer server(answerWith("welcome"));
    LazyNetwork network(networkFile());
    std::vector<std::thread> threads;
    std::atomic<int> answers = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
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
    QFuture<HttpResult> early;
    QFuture<HttpResult> late;
    {
        LazyNetwork network(networkFile());
        early = network.fetch(requestFor(server.url()));
        ASSERT_TRUE(waitFor([&] { return hasLoaded("/ostrel-network"); }));
        late = network.fetch(requestFor(server.url()));
    }
    EXPECT_TRUE(waitFor([&] { return early.isCanceled() && late.isCanceled(); }));
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
