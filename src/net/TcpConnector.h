#pragma once

#include <QFuture>
#include <QString>

#include <chrono>

namespace ostrel {

class IoThread;

struct TcpResult
{
    bool isConnected = false;
    /// From the attempt's admission to its end, measured on the I/O thread, to the microsecond.
    std::chrono::microseconds elapsed{0};
};

/// Opens TCP connections to see whether it can be done. Nothing is sent or received, and no proxy
/// is used.
class TcpConnector
{
public:
    /// @p ioThread outlives the connector.
    explicit TcpConnector(IoThread &ioThread);

    /// Resolves @p host (a name, an IPv4 or an IPv6 address, without brackets) and connects to
    /// @p port, trying the addresses of both families (happy eyeballs, RFC 8305), all within
    /// @p timeout. A refusal ends the attempt at once. May be called from any thread; the future
    /// finishes on the same terms as HttpClient::fetch's.
    [[nodiscard]] QFuture<TcpResult> connect(const QString &host, quint16 port,
                                             std::chrono::milliseconds timeout);

private:
    IoThread &m_ioThread;
};

} // namespace ostrel
