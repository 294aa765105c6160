#include "FetchFixture.h"
#include "FileDescriptor.h"
#include "HostileBehaviours.h"
#include "WaitFor.h"

#include <QDir>

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <dlfcn.h>
#include <memory>
#include <mutex>
#include <netdb.h>
#include <sys/resource.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

/// Holds name look-ups up, by the name that is looked up.
class HangingLookUps
{
public:
    /// Look-ups of it and of every name below it hang.
    static constexpr auto name = "hanging.test";
    /// Hangs like the other, but can be found afterwards.
    static constexpr auto recoveringName = "recovering.test";

    /// Returns when the test lets go, or after a time so long that the test has failed.
    void hang()
    {
        // Like a resolver's sockets.
        const FileDescriptor one(socket(AF_INET, SOCK_DGRAM, 0));
        const FileDescriptor other(socket(AF_INET, SOCK_DGRAM, 0));
        std::unique_lock lock(m_mutex);
        ++m_count;
        m_change.wait_for(lock, 5s, [this] { return m_isOver; });
        --m_count;
    }

    [[nodiscard]] int count()
    {
        const std::lock_guard lock(m_mutex);
        return m_count;
    }

    void find() { ++m_foundCount; }
    /// How often the recovering name has been found.
    [[nodiscard]] int foundCount() const { return m_foundCount; }

    [[nodiscard]] bool isHolding()
    {
        const std::lock_guard lock(m_mutex);
        return !m_isOver;
    }

    void holdUp(bool shallHang)
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = !shallHang;
        m_change.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_change;
    int m_count = 0;
    std::atomic<int> m_foundCount = 0;
    bool m_isOver = false;
};

HangingLookUps lookUps;

class HangingLookUpTest : public testing::Test
{
protected:
    HangingLookUpTest() { lookUps.holdUp(true); }
    ~HangingLookUpTest() override
    {
        lookUps.holdUp(false);
        EXPECT_TRUE(waitFor([] { return lookUps.count() == 0; }));
    }

    [[nodiscard]] static HttpRequest request(std::chrono::milliseconds timeout,
                                             const QByteArray &host = HangingLookUps::name)
    {
        HttpRequest request = requestFor("http://" + host + "/");
        request.timeout = timeout;
        return request;
    }
};

/// Sets the open-file limit that programs usually start with.
class UsualLimit
{
public:
    UsualLimit()
    {
        getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit usual{.rlim_cur = std::min<rlim_t>(1024, m_before.rlim_max),
                           .rlim_max = m_before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &usual);
    }
    ~UsualLimit() { setrlimit(RLIMIT_NOFILE, &m_before); }
    Q_DISABLE_COPY_MOVE(UsualLimit)

private:
    rlimit m_before{};
};

qsizetype entryCount(const char *folder)
{
    return QDir(QString::fromLatin1(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

} // namespace

TEST_F(HangingLookUpTest, DoesntDelayDestruction)
{
    auto network = std::make_unique<CurlNetwork>();
    const auto result = network->fetch(request(30s));
    ASSERT_TRUE(waitFor([] { return lookUps.count() == 1; }));

    network.reset();
    EXPECT_EQ(lookUps.count(), 1) << "it still hangs";
    EXPECT_TRUE(result.isCanceled() && result.isFinished());
}

TEST_F(HangingLookUpTest, EndsWithTheTimeoutAndDoesntAffectOthers)
{
    std::atomic<bool> mayAnswer = false;
    const HostileServer server([&](HostileConnection &connection, const SeenRequest &) {
        while (!mayAnswer && connection.pause(5ms)) {
        }
        connection.respond("200 OK");
    });
    CurlNetwork network;
    const auto hanging = network.fetch(request(200ms));
    const auto other = network.fetch(requestFor(server.url()));

    EXPECT_FALSE(hanging.result().hasResponse);
    EXPECT_GE(hanging.result().elapsed, 200ms);
    EXPECT_FALSE(other.isFinished());
    mayAnswer = true;
    EXPECT_TRUE(other.result().hasResponse);
    EXPECT_EQ(lookUps.count(), 1) << "both ended before the look-up";
}

TEST_F(HangingLookUpTest, ADeadNameServerTakesABoundedNumberOfThreadsAndFiles)
{
    constexpr int monitors = 300;
    const IoThreadConfiguration configuration;
    const HostileServer server(answerWith("OK"));
    const UsualLimit limit;
    const qsizetype threadsBefore = entryCount("/proc/self/task");
    const qsizetype filesBefore = entryCount("/proc/self/fd");
    auto network = std::make_unique<CurlNetwork>(configuration);
    std::vector<QFuture<HttpResult>> dead;
    for (int i = 0; i < monitors; ++i)
        dead.push_back(
            network->fetch(request(100ms, QByteArray::number(i) + '.' + HangingLookUps::name)));
    ASSERT_TRUE(waitFor([&] { return lookUps.count() == configuration.maxConcurrentLookUps; }));

    for (int i = 0; i < 100; ++i) {
        const HttpResult result = network->fetch(requestFor(server.url())).result();
        EXPECT_TRUE(result.hasResponse) << result.error.toStdString();
    }
    ASSERT_TRUE(waitFor([&] { return dead.front().isFinished(); }));
    EXPECT_EQ(lookUps.count(), configuration.maxConcurrentLookUps);
    // Each of the server's connections has a thread, too.
    EXPECT_LE(entryCount("/proc/self/task"),
              threadsBefore + configuration.maxConcurrentLookUps + 100 + 10);
    EXPECT_LE(entryCount("/proc/self/fd"),
              filesBefore + 2 * configuration.maxConcurrentLookUps + 50);
    // A request that waits in our own queue isn't down.
    const auto ended = std::ranges::count_if(dead, &QFuture<HttpResult>::isFinished);
    EXPECT_LE(ended, configuration.maxConcurrentLookUps);
}

TEST_F(HangingLookUpTest, AddressesDontWaitForNames)
{
    const HostileServer server(answerWith("OK"));
    CurlNetwork network;
    for (int i = 0; i < 300; ++i)
        (void)network.fetch(request(30s));
    ASSERT_TRUE(waitFor([] { return lookUps.count() == 1; }));
    EXPECT_TRUE(network.fetch(requestFor(server.url())).result().hasResponse);
    for (const char *host : {"127.0.0.1", "localhost"})
        EXPECT_TRUE(
            network.connect(QString::fromLatin1(host), server.port(), 10s).result().isConnected);
    EXPECT_EQ(lookUps.count(), 1);
}

TEST_F(HangingLookUpTest, RequestsAfterATimeoutJoinTheRunningLookUp)
{
    CurlNetwork network;
    for (int i = 0; i < 5; ++i) {
        EXPECT_FALSE(network.fetch(request(20ms)).result().hasResponse);
        EXPECT_FALSE(network.connect(QString::fromLatin1(HangingLookUps::name), 80, 20ms)
                         .result()
                         .isConnected);
    }
    EXPECT_EQ(lookUps.count(), 1);
}

TEST_F(HangingLookUpTest, ItsTimeoutDoesntFailARequestThatJoinedLater)
{
    const HostileServer server(answerWith("OK"));
    CurlNetwork network;
    const QString name = QString::fromLatin1(HangingLookUps::recoveringName);
    EXPECT_FALSE(network.connect(name, server.port(), 50ms).result().isConnected);
    const auto later = network.connect(name, server.port(), 10s);
    // Once this request, which needs no look-up, is done, the later one has joined.
    (void)network.connect(u"127.0.0.1"_s, server.port(), 10s).result();
    EXPECT_EQ(lookUps.count(), 1);
    lookUps.holdUp(false);
    EXPECT_TRUE(later.result().isConnected);
}

TEST_F(HangingLookUpTest, RequestsAfterDroppingStartALookUpOfTheirOwn)
{
    CurlNetwork network;
    const auto dropped = network.fetch(request(30s));
    ASSERT_TRUE(waitFor([] { return lookUps.count() == 1; }));
    network.dropConnections();
    EXPECT_TRUE(waitFor([&] { return dropped.isCanceled(); }));
    const auto result = network.fetch(request(30s));
    EXPECT_TRUE(waitFor([] { return lookUps.count() == 2; }));
    EXPECT_FALSE(result.isFinished());
}

TEST_F(HangingLookUpTest, ForARedirectsTargetEndsWithTheTimeout)
{
    const HostileServer server(redirectTo(QByteArray("http://") + HangingLookUps::name + "/"));
    CurlNetwork network;
    HttpRequest request = requestFor(server.url());
    request.timeout = 200ms;
    const HttpResult result = network.fetch(request).result();
    EXPECT_FALSE(result.hasResponse);
    EXPECT_GE(result.elapsed, 200ms);
    EXPECT_EQ(lookUps.count(), 1) << "it still hangs";
    EXPECT_THAT(result.error.toStdString(),
                testing::MatchesRegex("Resolving timed out after [0-9]+ milliseconds"));
}

TEST_F(HangingLookUpTest, EachNameIsLookedUpOnce)
{
    // In any spelling: the library finds the entry that was made for it.
    const HostileServer server(answerWith("OK"));
    const QByteArray port = QByteArray::number(server.port());
    CurlNetwork network;
    lookUps.holdUp(false);
    for (const char *name : {"recovering.test", "RECOVERING.test", "recovering.test."}) {
        const int before = lookUps.foundCount();
        const QByteArray url = QByteArray("http://") + name + ":" + port + "/";
        EXPECT_TRUE(network.fetch(requestFor(url)).result().hasResponse) << name;
        EXPECT_TRUE(
            network.connect(QString::fromLatin1(name), server.port(), 5s).result().isConnected);
        EXPECT_EQ(lookUps.foundCount(), before + 2) << name;
    }
}

TEST_F(HangingLookUpTest, IsLeftToTheProxyIfThereIsOne)
{
    const HostileServer proxy(answerWith("from the proxy"));
    qputenv("http_proxy", proxy.url());
    CurlNetwork network;
    EXPECT_EQ(network.fetch(request(5s)).result().body, "from the proxy");
    qputenv("http_proxy", QByteArray("http://proxy.") + HangingLookUps::name + ":3128");
    const HttpResult result = network.fetch(request(100ms, "shop.example")).result();
    qunsetenv("http_proxy");
    EXPECT_FALSE(result.hasResponse);
    EXPECT_EQ(lookUps.count(), 1);
}

} // namespace ostrel::test

/// Replaces the C library's function in this program.
extern "C" int getaddrinfo(const char *name, const char *service, const addrinfo *hints,
                           addrinfo **result)
{
    using ostrel::test::HangingLookUps;
    using ostrel::test::lookUps;
    const QByteArray asked = QByteArray(name).toLower();
    const bool recovers = asked.startsWith(HangingLookUps::recoveringName);
    if (asked.endsWith(HangingLookUps::name) || (recovers && lookUps.isHolding())) {
        lookUps.hang();
        return EAI_AGAIN;
    }
    if (recovers) {
        lookUps.find();
        name = "127.0.0.1";
    }
    using Resolve = decltype(getaddrinfo);
    static auto *const resolve = reinterpret_cast<Resolve *>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return resolve(name, service, hints, result);
}
