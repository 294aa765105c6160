#include "TcpTransfer.h"

#include <utility>

namespace ostrel {

TcpTransfer::TcpTransfer(WebAddress target, std::chrono::milliseconds timeout)
    : Transfer(timeout)
    , m_target(std::move(target))
{
    m_promise.start();
    if (const Place place = m_target.place(); needsLookUp(place.host))
        setNames({{.place = place}});
}

void TcpTransfer::setUp(CURL *handle)
{
    curl_easy_setopt(handle, CURLOPT_URL, m_target.text().constData());
    curl_easy_setopt(handle, CURLOPT_CONNECT_ONLY, 1L);
    // Also ignores a proxy that the environment names: that would connect to the proxy.
    curl_easy_setopt(handle, CURLOPT_PROXY, "");
}

void TcpTransfer::report(CURLcode code, std::chrono::microseconds elapsed)
{
    m_promise.addResult(TcpResult{.isConnected = code == CURLE_OK, .elapsed = elapsed});
    m_promise.finish();
}

} // namespace ostrel
