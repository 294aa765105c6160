#pragma once

#include "CurlHandles.h"
#include "Transfer.h"
#include "WebAddress.h"

#include <QByteArray>

#include <optional>

namespace ostrel {

class Proxies;

/// One of the exchanges that redirects string together to a request.
class HttpHop
{
public:
    /// The first one.
    HttpHop(WebAddress address, QByteArray method, const Proxies &proxies);

    /// The hop that an answer with @p status and @p location leads to. Nothing where that location
    /// is no address. The name and the password of the first hop's address go to its own site only.
    [[nodiscard]] std::optional<HttpHop> redirectedTo(const QByteArray &location, long status,
                                                      const Proxies &proxies) const;

    [[nodiscard]] const WebAddress &address() const { return m_address; }
    [[nodiscard]] bool isProxied() const { return !m_proxy.isEmpty(); }
    /// What has to be looked up here: the proxy's name in place of the site's where there is one,
    /// or both where the proxy wants an address.
    [[nodiscard]] Transfer::Names names() const;
    [[nodiscard]] bool needsCertificates() const;

    /// Sets what this hop asks of whom. Outlives the exchange.
    void setUp(CURL *handle);
    /// A handshake begins. False where it is one with the proxy.
    [[nodiscard]] bool isHandshakeWithSite();

private:
    void setMethod(CURL *handle);
    [[nodiscard]] bool isProxyTls() const;

    WebAddress m_first; ///< The first hop's.
    WebAddress m_address;
    QByteArray m_method;
    QByteArray m_proxy; ///< As the environment has it; empty for none.
    int m_handshakes = 0;
    CurlList m_headers;
};

} // namespace ostrel
