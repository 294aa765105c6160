#include "CurlNetwork.h"

#include <utility>

namespace ostrel {

CurlNetwork::CurlNetwork(IoThreadConfiguration configuration)
    : m_ioThread(std::move(configuration))
{
}

QFuture<HttpResult> CurlNetwork::fetch(const HttpRequest &request)
{
    return m_httpClient.fetch(request);
}

QFuture<TcpResult> CurlNetwork::connect(const QString &host, quint16 port,
                                        std::chrono::milliseconds timeout)
{
    return m_tcpConnector.connect(host, port, timeout);
}

void CurlNetwork::dropConnections()
{
    m_ioThread.dropConnections();
}

} // namespace ostrel
