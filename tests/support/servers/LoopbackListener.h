#pragma once

#include <QtGlobal>

namespace ostrel::test {

enum class LoopbackFamily {
    Ipv4,
    SecondIpv4, ///< 127.0.0.2, for tests that distinguish addresses.
    Ipv6,
};

/// A TCP socket that listens on a free port of the loopback interface. Accepting isn't necessary:
/// the kernel completes connections up to the backlog.
class LoopbackListener
{
public:
    explicit LoopbackListener(LoopbackFamily family = LoopbackFamily::Ipv4, int backlog = 512);
    ~LoopbackListener();
    LoopbackListener(const LoopbackListener &) = delete;
    LoopbackListener &operator=(const LoopbackListener &) = delete;

    /// False if the computer has no loopback address of the family.
    [[nodiscard]] bool isListening() const { return m_port != 0; }
    [[nodiscard]] quint16 port() const { return m_port; }
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
    quint16 m_port = 0;
};

/// A port of 127.0.0.1 that swallows every attempt to connect, like an address behind a firewall
/// that drops packets: its backlog is full.
class BlackholePort
{
public:
    BlackholePort();
    ~BlackholePort();
    BlackholePort(const BlackholePort &) = delete;
    BlackholePort &operator=(const BlackholePort &) = delete;

    [[nodiscard]] quint16 port() const { return m_listener.port(); }

private:
    LoopbackListener m_listener;
    int m_filler;
};

/// A port of 127.0.0.1 on which nothing was listening a moment ago.
[[nodiscard]] quint16 closedPort();

} // namespace ostrel::test
