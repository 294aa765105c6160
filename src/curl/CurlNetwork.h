#pragma once

#include "HttpClient.h"
#include "IoThread.h"
#include "Network.h"
#include "TcpConnector.h"

namespace ostrel {

/// The network by libcurl, on one I/O thread.
class CurlNetwork : public Network
{
public:
    explicit CurlNetwork(IoThreadConfiguration configuration = {});

    [[nodiscard]] QFuture<HttpResult> fetch(const HttpRequest &request) override;
    [[nodiscard]] QFuture<TcpResult> connect(const QString &host, quint16 port,
                                             std::chrono::milliseconds timeout) override;
    void dropConnections() override;

private:
    IoThread m_ioThread;
    HttpClient m_httpClient{m_ioThread};
    TcpConnector m_tcpConnector{m_ioThread};
};

} // namespace ostrel
