#pragma once

#include "Network.h"

namespace ostrel::test {

/// A network through which nothing can be reached. Tests override what they need.
class OfflineNetwork : public Network
{
public:
    QFuture<HttpResult> fetch(const HttpRequest &request) override
    {
        Q_UNUSED(request)
        return QtFuture::makeReadyFuture(HttpResult());
    }
    QFuture<TcpResult> connect(const QString &host, quint16 port,
                               std::chrono::milliseconds timeout) override
    {
        Q_UNUSED(host)
        Q_UNUSED(port)
        Q_UNUSED(timeout)
        return QtFuture::makeReadyFuture(TcpResult());
    }
    void dropConnections() override {}
};

} // namespace ostrel::test
