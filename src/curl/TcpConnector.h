#pragma once

#include "Network.h"

namespace ostrel {

class IoThread;

/// Opens TCP connections to see whether it can be done, as Network::connect says.
class TcpConnector
{
public:
    /// @p ioThread outlives the connector.
    explicit TcpConnector(IoThread &ioThread);

    /// May be called from any thread.
    [[nodiscard]] QFuture<TcpResult> connect(const QString &host, quint16 port,
                                             std::chrono::milliseconds timeout);

private:
    IoThread &m_ioThread;
};

} // namespace ostrel
