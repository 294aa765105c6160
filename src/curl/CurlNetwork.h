#pragma once

#include "IoThreadConfiguration.h"
#include "Network.h"
#include "WorkThread.h"

#include <memory>

namespace ostrel {

class IoThread;

/// The network, implemented with libcurl on one I/O thread.
class CurlNetwork : public Network
{
public:
    explicit CurlNetwork(IoThreadConfiguration configuration = {});
    ~CurlNetwork() override;

    [[nodiscard]] QFuture<HttpResult> fetch(const HttpRequest &request) override;
    [[nodiscard]] QFuture<TcpResult> connect(const QString &host, quint16 port,
                                             std::chrono::milliseconds timeout) override;
    void dropConnections() override;

private:
    const std::unique_ptr<IoThread> m_ioThread;
    WorkThread m_reading;
    /// For bodies that are only kept: those of icons and titles, which aren't urgent.
    WorkThread m_keeping;
};

} // namespace ostrel
