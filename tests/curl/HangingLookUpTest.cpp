#include "FetchFixture.h"
#include "HostileBehaviours.h"
#include "WaitFor.h"

#include <condition_variable>
#include <dlfcn.h>
#include <mutex>
#include <netdb.h>
#include <string_view>

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

/// Look-ups that a test holds up, by the name that is looked up.
class HangingLookUps
{
public:
    static constexpr auto name = "hanging.test";

    /// Returns when the test lets go, or after so long that the test has failed.
    void hang()
    {
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

    [[nodiscard]] static HttpRequest request(std::chrono::milliseconds timeout)
    {
        HttpRequest request = requestFor(QByteArray("http://") + HangingLookUps::name + "/");
        request.timeout = timeout;
        return request;
    }
};

} // namespace

TEST_F(HangingLookUpTest, DoesntHoldUpTheEnd)
{
    auto ioThread = std::make_unique<IoThread>();
    const auto result = HttpClient(*ioThread).fetch(request(30s));
    ASSERT_TRUE(waitFor([] { return lookUps.count() == 1; }));

    const auto begin = std::chrono::steady_clock::now();
    ioThread.reset();
    EXPECT_LE(std::chrono::steady_clock::now() - begin, 300ms);
    EXPECT_EQ(lookUps.count(), 1);
    EXPECT_TRUE(result.isCanceled() && result.isFinished());
}

TEST_F(HangingLookUpTest, EndsWithTheTimeoutAndLeavesOthersAlone)
{
    const HostileServer server(answerAfter(500ms));
    IoThread ioThread;
    HttpClient client(ioThread);
    const auto hanging = client.fetch(request(200ms));
    const auto other = client.fetch(requestFor(server.url()));

    EXPECT_FALSE(hanging.result().hasResponse);
    EXPECT_LE(hanging.result().elapsed, 400ms);
    EXPECT_TRUE(other.result().hasResponse);
    EXPECT_LE(other.result().elapsed, 800ms);
    EXPECT_EQ(lookUps.count(), 1);
}

} // namespace ostrel::test

/// Takes the C library's place in this program.
extern "C" int getaddrinfo(const char *name, const char *service, const addrinfo *hints,
                           addrinfo **result)
{
    if (name != nullptr && std::string_view(name) == ostrel::test::HangingLookUps::name) {
        ostrel::test::lookUps.hang();
        return EAI_AGAIN;
    }
    using Resolve = decltype(getaddrinfo);
    static auto *const resolve = reinterpret_cast<Resolve *>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return resolve(name, service, hints, result);
}
