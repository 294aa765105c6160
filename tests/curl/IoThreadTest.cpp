#include "FetchFixture.h"
#include "HostileBehaviours.h"
#include "LoopbackListener.h"
#include "WaitFor.h"

#include <algorithm>
#include <atomic>
#include <ctime>
#include <memory>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

TEST(IoThreadTest, AWaitingTransfersClockStartsWhenItIsAdmitted)
{
    const HostileServer server(answerAfter(150ms));
    CurlNetwork network({.maxConcurrentTransfers = 2});
    QList<QFuture<HttpResult>> futures;
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 6; ++i)
        futures.append(network.fetch(requestFor(server.url())));
    for (auto &future : futures)
        future.waitForFinished();
    // Three rounds: a clock that starts at once would show all of them in the third.
    const auto whole = std::chrono::steady_clock::now() - begin;
    for (const auto &future : futures) {
        EXPECT_TRUE(future.result().hasResponse) << future.result().error.toStdString();
        EXPECT_GE(future.result().elapsed, 150ms);
        EXPECT_LE(future.result().elapsed, whole * 3 / 4);
    }
}

TEST(IoThreadTest, NoMoreThanTheBoundRunAtOnce)
{
    std::atomic<int> running = 0;
    std::atomic<int> most = 0;
    const HostileServer server([&](HostileConnection &connection, const SeenRequest &) {
        most = std::max(most.load(), ++running);
        connection.pause(20ms);
        --running;
        connection.respond("200 OK");
    });
    CurlNetwork network({.maxConcurrentTransfers = 3});
    QList<QFuture<HttpResult>> futures;
    for (int i = 0; i < 12; ++i)
        futures.append(network.fetch(requestFor(server.url())));
    for (const auto &future : futures)
        EXPECT_TRUE(future.result().hasResponse);
    EXPECT_EQ(most, 3);
}

TEST(IoThreadTest, WaitingTransfersAreAdmittedInOrder)
{
    const HostileServer server(answerWith("OK"));
    CurlNetwork network({.maxConcurrentTransfers = 1});
    QList<QFuture<HttpResult>> futures;
    QByteArrayList expected;
    for (int i = 0; i < 20; ++i) {
        expected.append("/" + QByteArray::number(i));
        futures.append(network.fetch(requestFor(server.url(expected.last()))));
    }
    futures.last().waitForFinished();
    QByteArrayList seen;
    for (const SeenRequest &request : server.requests())
        seen.append(request.target);
    EXPECT_EQ(seen, expected);
}

TEST(IoThreadTest, ABoundOfZeroCountsAsOne)
{
    const HostileServer server(answerWith("OK"));
    CurlNetwork network({.maxConcurrentTransfers = 0});
    EXPECT_TRUE(network.fetch(requestFor(server.url())).result().hasResponse);
}

TEST(IoThreadTest, ABusySocketDoesntKeepOthersFromBeingAdmitted)
{
    const HostileServer busy(sendEndlessBody);
    const HostileServer decent(answerWith("OK"));
    CurlNetwork network;
    const auto endless = network.fetch(requestWithin(5s, busy.url()));
    ASSERT_TRUE(waitFor([&] { return busy.connectionCount() == 1; }));
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(network.fetch(requestFor(decent.url())).result().hasResponse);
    EXPECT_FALSE(endless.isFinished());
}

TEST(IoThreadTest, AHundredThatHangLeaveRoomForOthers)
{
    const BlackholePort hole;
    const HostileServer decent(answerWith("OK"));
    CurlNetwork network;
    for (int i = 0; i < 100; ++i)
        (void)network.connect(u"127.0.0.1"_s, hole.port(), 30s);
    EXPECT_TRUE(network.fetch(requestFor(decent.url())).result().hasResponse);
}

TEST(IoThreadTest, DroppingCancelsRunningAndWaitingTransfers)
{
    const HostileServer silent(staySilent);
    const HostileServer server(answerWith("OK"));
    CurlNetwork network({.maxConcurrentTransfers = 1});
    auto first = network.fetch(requestWithin(30s, silent.url()));
    auto second = network.fetch(requestFor(server.url()));
    ASSERT_TRUE(waitFor([&] { return silent.requests().size() == 1; }));
    network.dropConnections();
    first.waitForFinished();
    second.waitForFinished();
    EXPECT_TRUE(first.isCanceled());
    EXPECT_TRUE(second.isCanceled());
    EXPECT_TRUE(network.fetch(requestFor(server.url())).result().hasResponse);
    EXPECT_EQ(silent.requests().size(), 1) << "nothing is asked for again";
    EXPECT_EQ(server.requests().size(), 1);
}

TEST(IoThreadTest, RequestsRightAfterDroppingAreCarriedOut)
{
    const HostileServer server(answerWith("OK"));
    const auto wakesUp = [&](std::chrono::nanoseconds pause) {
        CurlNetwork network;
        network.dropConnections();
        const auto moment = std::chrono::steady_clock::now() + pause;
        while (std::chrono::steady_clock::now() < moment) {
        }
        const auto future = network.fetch(requestFor(server.url()));
        const auto patience = moment + 5s;
        while (!future.isFinished() && std::chrono::steady_clock::now() < patience)
            std::this_thread::yield();
        return future.isFinished() && future.result().hasResponse;
    };
    // At a different moment of the dropping each time, since it isn't known which one matters.
    for (int round = 0; round < 1000; ++round)
        ASSERT_TRUE(wakesUp(std::chrono::nanoseconds(round * 40))) << round;
}

TEST(IoThreadTest, DroppingWithoutTransfersHasNoEffect)
{
    const HostileServer server(answerWith("OK"));
    CurlNetwork network;
    network.dropConnections();
    EXPECT_TRUE(network.fetch(requestFor(server.url())).result().hasResponse);
    network.dropConnections();
    EXPECT_TRUE(network.fetch(requestFor(server.url())).result().hasResponse);
}

TEST(IoThreadTest, DestructionCancelsRunningAndWaitingTransfers)
{
    const HostileServer server(staySilent);
    const BlackholePort hole;
    auto network =
        std::make_unique<CurlNetwork>(IoThreadConfiguration{.maxConcurrentTransfers = 2});
    const auto running = network->fetch(requestFor(server.url()));
    const auto connecting = network->connect(u"127.0.0.1"_s, hole.port(), 30s);
    const auto waiting = network->fetch(requestFor(server.url()));
    ASSERT_TRUE(waitFor([&] { return server.requests().size() == 1; }));

    network.reset();
    EXPECT_TRUE(running.isCanceled() && running.isFinished());
    EXPECT_TRUE(connecting.isCanceled() && connecting.isFinished());
    EXPECT_TRUE(waiting.isCanceled() && waiting.isFinished());
    // Each would have a result if its time-out had come first.
    EXPECT_EQ(running.resultCount() + connecting.resultCount() + waiting.resultCount(), 0);
}

TEST(IoThreadTest, UnusedThreadsEndBeforeATransferTimesOut)
{
    const HostileServer server(staySilent);
    CurlNetwork network;
    const auto silent = network.fetch(requestWithin(10s, server.url()));
    for (int i = 0; i < 30; ++i)
        const CurlNetwork unused;
    EXPECT_FALSE(silent.isFinished());
}

TEST(IoThreadTest, AWaitingTransferCostsNoCpu)
{
    const HostileServer server(staySilent);
    CurlNetwork network;
    const std::clock_t before = std::clock();
    (void)network.fetch(requestWithin(1s, server.url())).result();
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 5);
}

} // namespace

} // namespace ostrel::test
