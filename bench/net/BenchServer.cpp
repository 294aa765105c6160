#include "BenchServer.h"

#include <QFile>

#include <openssl/ssl.h>

#include <array>
#include <chrono>
#include <csignal>
#include <deque>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <string_view>
#include <sys/epoll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <unordered_map>

namespace ostrel::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::string_view response =
    "HTTP/1.1 200 OK\r\nContent-Length: 2\r\nConnection: close\r\n\r\nOK";
constexpr auto delay = std::chrono::milliseconds(BenchServer::delayMilliseconds);

enum class Manner { Prompt, Tls, Delayed, Silent };

struct SslRelease
{
    void operator()(SSL *ssl) const { SSL_free(ssl); }
};

struct Connection
{
    Manner manner;
    std::unique_ptr<SSL, SslRelease> ssl;
};

SSL_CTX *makeTlsContext(const test::TestLeaf &leaf)
{
    SSL_CTX *context = SSL_CTX_new(TLS_server_method());
    const QByteArray chain = QFile::encodeName(leaf.chainFile);
    const QByteArray key = QFile::encodeName(leaf.keyFile);
    SSL_CTX_use_certificate_chain_file(context, chain.constData());
    SSL_CTX_use_PrivateKey_file(context, key.constData(), SSL_FILETYPE_PEM);
    return context;
}

/// The child's loop.
class Loop
{
public:
    explicit Loop(const test::TestLeaf &leaf)
        : m_tlsContext(makeTlsContext(leaf))
        , m_epoll(epoll_create1(0))
    {
    }

    void listenTo(const test::LoopbackListener &listener, Manner manner)
    {
        fcntl(listener.descriptor(), F_SETFL, O_NONBLOCK);
        m_listeners.emplace(listener.descriptor(), manner);
        watch(listener.descriptor());
    }

    [[noreturn]] void run()
    {
        std::array<epoll_event, 64> events{};
        for (;;) {
            const std::optional<timespec> patience = timeToNextAnswer();
            const int count = epoll_pwait2(m_epoll, events.data(), events.size(),
                                           patience ? &*patience : nullptr, nullptr);
            for (int i = 0; i < count; ++i)
                handle(events[static_cast<std::size_t>(i)].data.fd);
            answerDelayed();
        }
    }

private:
    void watch(int descriptor) const
    {
        epoll_event event{};
        event.events = EPOLLIN;
        event.data.fd = descriptor;
        epoll_ctl(m_epoll, EPOLL_CTL_ADD, descriptor, &event);
    }

    void handle(int descriptor)
    {
        if (const auto listener = m_listeners.find(descriptor); listener != m_listeners.end())
            acceptAll(descriptor, listener->second);
        else
            read(descriptor);
    }

    void acceptAll(int listener, Manner manner)
    {
        int descriptor = -1;
        while ((descriptor = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK)) >= 0) {
            Connection connection{.manner = manner, .ssl = {}};
            if (manner == Manner::Tls) {
                connection.ssl.reset(SSL_new(m_tlsContext));
                SSL_set_fd(connection.ssl.get(), descriptor);
                SSL_set_accept_state(connection.ssl.get());
            }
            m_connections.emplace(descriptor, std::move(connection));
            watch(descriptor);
        }
    }

    // A request arrives in one piece here.
    void read(int descriptor)
    {
        std::array<char, 4096> buffer{};
        const Connection &connection = m_connections.at(descriptor);
        if (connection.ssl != nullptr) {
            const int count = SSL_read(connection.ssl.get(), buffer.data(), buffer.size());
            if (count > 0)
                answer(descriptor);
            else if (SSL_get_error(connection.ssl.get(), count) != SSL_ERROR_WANT_READ)
                drop(descriptor);
            return;
        }
        if (recv(descriptor, buffer.data(), buffer.size(), 0) <= 0)
            drop(descriptor);
        else if (connection.manner == Manner::Prompt)
            answer(descriptor);
        else if (connection.manner == Manner::Delayed)
            m_delayed.emplace_back(Clock::now() + delay, descriptor);
    }

    void answer(int descriptor)
    {
        if (SSL *ssl = m_connections.at(descriptor).ssl.get()) {
            SSL_write(ssl, response.data(), static_cast<int>(response.size()));
            SSL_shutdown(ssl);
        } else {
            (void)send(descriptor, response.data(), response.size(), MSG_NOSIGNAL);
        }
        shutdown(descriptor, SHUT_WR);
        drop(descriptor);
    }

    void drop(int descriptor)
    {
        m_connections.erase(descriptor);
        close(descriptor);
    }

    [[nodiscard]] std::optional<timespec> timeToNextAnswer() const
    {
        if (m_delayed.empty())
            return std::nullopt;
        const auto left = std::max(m_delayed.front().first - Clock::now(), Clock::duration::zero());
        const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
        return timespec{.tv_sec = seconds.count(), .tv_nsec = (left - seconds).count()};
    }

    void answerDelayed()
    {
        while (!m_delayed.empty() && m_delayed.front().first <= Clock::now()) {
            answer(m_delayed.front().second);
            m_delayed.pop_front();
        }
    }

    SSL_CTX *m_tlsContext;
    int m_epoll;
    std::unordered_map<int, Manner> m_listeners;
    std::unordered_map<int, Connection> m_connections;
    std::deque<std::pair<Clock::time_point, int>> m_delayed;
};

QByteArray urlOf(const char *scheme, const test::LoopbackListener &listener)
{
    return QByteArray(scheme) + "://127.0.0.1:" + QByteArray::number(listener.port()) + "/";
}

} // namespace

BenchServer::BenchServer(const test::TestLeaf &leaf)
    : m_process(fork())
{
    if (m_process != 0)
        return;
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    // Otherwise the kernel may be 50 µs late at every answer.
    prctl(PR_SET_TIMERSLACK, 1);
    Loop loop(leaf);
    loop.listenTo(m_prompt, Manner::Prompt);
    loop.listenTo(m_tls, Manner::Tls);
    loop.listenTo(m_delayed, Manner::Delayed);
    loop.listenTo(m_silent, Manner::Silent);
    loop.run();
}

BenchServer::~BenchServer()
{
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
}

QByteArray BenchServer::promptUrl() const
{
    return urlOf("http", m_prompt);
}

QByteArray BenchServer::tlsUrl() const
{
    return urlOf("https", m_tls);
}

QByteArray BenchServer::delayedUrl() const
{
    return urlOf("http", m_delayed);
}

QByteArray BenchServer::silentUrl() const
{
    return urlOf("http", m_silent);
}

} // namespace ostrel::bench
