#include "EncodedBytes.h"
#include "FetchFixture.h"
#include "HostileBehaviours.h"
#include "NotingReader.h"
#include "Printers.h"
#include "WaitFor.h"

#include <algorithm>
#include <atomic>
#include <malloc.h>
#include <memory>
#include <new>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

constexpr qsizetype mebibyte = qsizetype(1024) * 1024;

/// Blocks in read() until open().
class BlockedReader : public BodyReader
{
public:
    void begin() override {}
    void read(QByteArrayView bytes) override
    {
        isBlocked = true;
        m_isOpen.wait(false);
        count += bytes.size();
    }
    void open()
    {
        m_isOpen = true;
        m_isOpen.notify_all();
    }

    std::atomic<bool> isBlocked = false;
    std::atomic<qsizetype> count = 0;

private:
    std::atomic<bool> m_isOpen = false;
};

/// Counts the bytes without keeping them.
class CountingReader : public BodyReader
{
public:
    void begin() override {}
    void read(QByteArrayView bytes) override
    {
        count += bytes.size();
        largest = std::max(largest, bytes.size());
        memory = std::max(memory, mallinfo2().uordblks);
    }

    qsizetype count = 0;
    qsizetype largest = 0;
    std::size_t memory = 0;
};

class ThrowingReader : public BodyReader
{
public:
    void begin() override {}
    void read(QByteArrayView bytes) override
    {
        m_count += bytes.size();
        if (m_count > mebibyte)
            throw std::bad_alloc();
    }

private:
    qsizetype m_count = 0;
};

HttpRequest requestReadBy(const std::shared_ptr<BodyReader> &reader, const QByteArray &url,
                          std::chrono::milliseconds timeout = 20s)
{
    HttpRequest request = requestFor(url);
    request.bodyLimit = 0;
    request.bodyReader = reader;
    request.timeout = timeout;
    return request;
}

/// Sends a page of unknown length, as chunks, after @p delay.
HostileServer::Behaviour answerInChunksAfter(std::chrono::milliseconds delay, qsizetype size)
{
    return [delay, size](HostileConnection &connection, const SeenRequest &) {
        connection.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
        connection.pause(delay);
        connection.send(QByteArray::number(size, 16) + "\r\n" + QByteArray(size, 'x') +
                        "\r\n0\r\n\r\n");
    };
}

class BodyReadingTest : public FetchFixture
{
protected:
    ~BodyReadingTest() override { blocked->open(); }

    std::shared_ptr<BlockedReader> blocked = std::make_shared<BlockedReader>();
};

} // namespace

TEST_F(BodyReadingTest, ALargeBodyIsReadWholeAndInOrder)
{
    QByteArray page;
    for (int i = 0; page.size() < 8 * mebibyte; ++i)
        page += QByteArray::number(i) + " ";
    const HostileServer server(answerWith(page));
    const auto reader = std::make_shared<NotingReader>();
    const HttpResult result = fetch(requestReadBy(reader, server.url()));
    EXPECT_TRUE(result.isBodyRead);
    EXPECT_TRUE(reader->text == page);
    EXPECT_EQ(result.body, "") << "nothing is kept";
}

TEST_F(BodyReadingTest, NothingOfALargeBodyIsKept)
{
    const HostileServer server(sendGzipBomb);
    const auto reader = std::make_shared<CountingReader>();
    const std::size_t before = mallinfo2().uordblks;
    EXPECT_TRUE(fetch(requestReadBy(reader, server.url())).isBodyRead);
    EXPECT_EQ(reader->count, 256 * mebibyte);
    EXPECT_LE(reader->largest, 512 * 1024);
    EXPECT_LT(reader->memory, before + std::size_t(8 * mebibyte));
}

TEST_F(BodyReadingTest, ASlowReaderDoesNotAddToTheElapsedTime)
{
    const HostileServer server(answerWith(QByteArray(16 * mebibyte, 'x')));
    const auto begin = std::chrono::steady_clock::now();
    const HttpResult result = fetch(requestReadBy(blocked, server.url(), 4s));
    const auto whole = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(whole, 1s) << "it was never waited for";
    EXPECT_TRUE(result.hasResponse) << result.error.toStdString();
    EXPECT_EQ(result.statusCode, 200);
    EXPECT_FALSE(result.isBodyRead);
    EXPECT_LT(result.elapsed, whole / 2);
}

TEST_F(BodyReadingTest, ALatePageOfUnknownLengthWaitsForItsReaderNoLongerThanTheGrace)
{
    const HostileServer server(answerInChunksAfter(3400ms, 4 * mebibyte));
    const HttpResult result = fetch(requestReadBy(blocked, server.url(), 4s));
    EXPECT_TRUE(result.hasResponse) << result.error.toStdString();
    EXPECT_FALSE(result.isBodyRead);
    EXPECT_LT(result.elapsed, 4s) << "its time-out";
}

TEST_F(BodyReadingTest, TheReaderOfAnEarlyPageOfUnknownLengthIsWaitedFor)
{
    const HostileServer server(answerInChunksAfter(0ms, 4 * mebibyte));
    const auto future = m_network.fetch(requestReadBy(blocked, server.url(), 20s));
    ASSERT_TRUE(waitFor([&] { return blocked->isBlocked.load(); }));
    std::this_thread::sleep_for(1s);
    blocked->open();
    EXPECT_TRUE(future.result().isBodyRead);
}

TEST_F(BodyReadingTest, AReaderThatCatchesUpIsWaitedFor)
{
    const HostileServer server(answerWith(QByteArray(16 * mebibyte, 'x')));
    const auto future = m_network.fetch(requestReadBy(blocked, server.url(), 20s));
    ASSERT_TRUE(waitFor([&] { return blocked->isBlocked.load(); }));
    blocked->open();
    EXPECT_TRUE(future.result().isBodyRead);
    EXPECT_EQ(blocked->count, 16 * mebibyte);
}

TEST_F(BodyReadingTest, EveryFetchEndsWithinHalfASecondOfItsTimeout)
{
    const HostileServer small(answerWith("a small page"));
    const HostileServer large(answerWith(QByteArray(16 * mebibyte, 'x')));
    const HostileServer endless(sendEndlessBody);
    const HostileServer bomb(sendEndlessGzipBomb);
    for (const HostileServer *server : {&small, &large, &endless, &bomb}) {
        const auto begin = std::chrono::steady_clock::now();
        const auto future = m_network.fetch(requestReadBy(blocked, server->url(), 400ms));
        const HttpResult result = future.result();
        // The exact bound is the requirement.
        EXPECT_LE(std::chrono::steady_clock::now() - begin, 900ms);
        EXPECT_EQ(future.resultCount(), 1);
        EXPECT_FALSE(result.isBodyRead);
        const bool isFinite = server == &small || server == &large;
        EXPECT_EQ(result.hasResponse, isFinite) << result.error.toStdString();
        if (!isFinite) {
            EXPECT_GE(result.elapsed, 400ms);
            EXPECT_TRUE(result.error.contains(u"timed out"_s));
        }
    }
}

TEST_F(BodyReadingTest, IfTheReaderThrowsTheBodyCountsAsNotRead)
{
    const HostileServer server(answerWith(QByteArray(16 * mebibyte, 'x')));
    const HttpResult result =
        fetch(requestReadBy(std::make_shared<ThrowingReader>(), server.url()));
    EXPECT_TRUE(result.hasResponse);
    EXPECT_FALSE(result.isBodyRead);
    const auto reader = std::make_shared<NotingReader>();
    EXPECT_TRUE(fetch(requestReadBy(reader, server.url())).isBodyRead) << "the thread goes on";
}

TEST_F(BodyReadingTest, BombsTakeTurnsWithAHealthyPage)
{
    const QByteArray zeros(64 * mebibyte, '\0');
    const HostileServer gzipBomb(sendEndlessGzipBomb);
    const HostileServer brotliBomb(answerEncoded("br", brotli(zeros)));
    const HostileServer zstdBomb(sendEndlessZstdBomb);
    const HostileServer healthy(answerEncoded("gzip", gzip("All systems operational")));
    std::vector<QFuture<HttpResult>> bombs;
    for (int i = 0; i < 5; ++i) {
        for (const HostileServer *server : {&gzipBomb, &brotliBomb, &zstdBomb})
            bombs.push_back(m_network.fetch(
                requestReadBy(std::make_shared<CountingReader>(), server->url(), 3s)));
    }
    const auto isAnyUnderWay = [&] {
        return std::any_of(bombs.begin(), bombs.end(),
                           [](const auto &bomb) { return !bomb.isFinished(); });
    };
    int checks = 0;
    while (isAnyUnderWay() && checks < 20) {
        const auto reader = std::make_shared<NotingReader>();
        const HttpResult result = fetch(requestReadBy(reader, healthy.url(), 2s));
        EXPECT_TRUE(result.hasResponse) << result.error.toStdString();
        EXPECT_TRUE(result.isBodyRead);
        EXPECT_EQ(reader->text, "All systems operational");
        ++checks;
    }
    EXPECT_GT(checks, 3);
}

TEST(BodyReadingEndTest, DestructionDoesNotWaitForAReader)
{
    const HostileServer server(answerWith(QByteArray(16 * mebibyte, 'x')));
    const auto blocked = std::make_shared<BlockedReader>();
    auto network = std::make_unique<CurlNetwork>();
    const auto future = network->fetch(requestReadBy(blocked, server.url()));
    ASSERT_TRUE(waitFor([&] { return blocked->isBlocked.load(); }));
    // The reader blocks until the test opens it, so a destructor that waited for it would never
    // return.
    network.reset();
    EXPECT_TRUE(future.isCanceled());
    EXPECT_TRUE(WorkThread::isAnyLeftBehind());
    blocked->open();
    // It ends by itself, and nothing that it uses has been destroyed.
    EXPECT_TRUE(waitFor([&] { return blocked.use_count() == 1; }));
}

} // namespace ostrel::test
