#pragma once

#include "Network.h"
#include "WorkThread.h"

namespace ostrel {

class IoThread;

/// Fetches web addresses, as Network::fetch says.
class HttpClient
{
public:
    /// @p ioThread outlives the client.
    explicit HttpClient(IoThread &ioThread);

    /// Starts @p request. May be called from any thread.
    [[nodiscard]] QFuture<HttpResult> fetch(const HttpRequest &request);

private:
    IoThread &m_ioThread;
    WorkThread m_reading;
    /// For bodies that are only kept: they are icons' and titles', which nobody waits for.
    WorkThread m_keeping;
};

} // namespace ostrel
