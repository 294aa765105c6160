#include "TcpTransfer.h"

#include "TrustStore.h"

#include <utility>

namespace ostrel {

TcpTransfer::TcpTransfer(CurlUrl target, std::chrono::milliseconds timeout)
    : Transfer(timeout)
    , m_target(std::move(target))
{
    m_promise.start();
}

void TcpTransfer::setUp(CURL *handle, const TrustStore &trustStore)
{
    Q_UNUSED(trustStore)
    curl_easy_setopt(handle, CURLOPT_CURLU, m_target.get());
    curl_easy_setopt(handle, CURLOPT_CONNECT_ONLY, 1L);
    // Neither one that the environment names: that would connect to the proxy.
    curl_easy_setopt(handle, CURLOPT_PROXY, "");
}

void TcpTransfer::report(CURLcode code, std::chrono::microseconds elapsed)
{
    m_promise.addResult(TcpResult{.isConnected = code == CURLE_OK, .elapsed = elapsed});
    m_promise.finish();
}

} // namespace ostrel
