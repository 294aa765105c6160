#pragma once

#include "LoopbackListener.h"
#include "TestCertificates.h"

#include <QByteArray>

#include <sys/types.h>

namespace ostrel::bench {

/// A server in a process of its own, so that its work isn't counted as the client's: one thread
/// with epoll, from construction to destruction. Construct it before the first thread is started.
class BenchServer
{
public:
    static constexpr int delayMilliseconds = 50;

    /// @p leaf is the certificate of the TLS port.
    explicit BenchServer(const test::TestLeaf &leaf);
    ~BenchServer();
    BenchServer(const BenchServer &) = delete;
    BenchServer &operator=(const BenchServer &) = delete;

    /// A URL that is answered at once.
    [[nodiscard]] QByteArray promptUrl() const;
    /// A URL that is answered at once, over TLS.
    [[nodiscard]] QByteArray tlsUrl() const;
    /// A URL that is answered exactly delayMilliseconds after the request arrived.
    [[nodiscard]] QByteArray delayedUrl() const;
    /// A URL that is never answered.
    [[nodiscard]] QByteArray silentUrl() const;

private:
    test::LoopbackListener m_prompt;
    test::LoopbackListener m_tls;
    test::LoopbackListener m_delayed;
    test::LoopbackListener m_silent;
    pid_t m_process;
};

} // namespace ostrel::bench
