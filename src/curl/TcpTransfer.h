#pragma once

#include "Network.h"
#include "Transfer.h"

#include <QPromise>

namespace ostrel {

/// One attempt to connect, as described at Network::connect().
class TcpTransfer final : public Transfer
{
public:
    /// @p target has the host and the port.
    TcpTransfer(WebAddress target, std::chrono::milliseconds timeout);

    [[nodiscard]] QFuture<TcpResult> future() const { return m_promise.future(); }

protected:
    void setUp(CURL *handle) override;
    void report(CURLcode code, std::chrono::microseconds elapsed) override;

private:
    WebAddress m_target;
    QPromise<TcpResult> m_promise;
};

} // namespace ostrel
