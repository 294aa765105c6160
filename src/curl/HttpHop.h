#pragma once

#include "CurlHandles.h"
#include "Transfer.h"
#include "WebAddress.h"

#include <QByteArray>

#include <optional>

namespace ostrel {

class Proxies;

/// One of the exchanges of a request, which redirects link together.
class HttpHop
{
public:
    /// Makes the first hop.
    HttpHop(WebAddress address, QByteArray method, const Proxies &proxies);

    /// The hop after a response with @p status and @p location. Nullopt if the location isn't an
    /// address. The name and the password in the first hop's address are sent only to its own site.
    [[nodiscard]] std::optional<HttpHop> redirectedTo(const QByteArray &location, long status,
                                                      const Proxies &proxies) const;

    [[nodiscard]] const WebAddress &address() const { return m_address; }
    [[nodiscard]] bool isProxied() const { return !m_proxy.isEmpty(); }
    /// The names to look up: the site's, or the proxy's if there is one, or both if the proxy needs
    /// the site's address.
    [[nodiscard]] Transfer::Names names() const;
    [[nodiscard]] bool needsCertificates() const;

    /// Sets this hop's options. The hop must outlive the exchange.
    void setUp(CURL *handle);
    /// Called when a handshake begins. False if it is a handshake with the proxy.
    [[nodiscard]] bool isHandshakeWithSite();

private:
    void setMethod(CURL *handle);
    [[nodiscard]] bool isProxyTls() const;

    WebAddress m_first; ///< The first hop's address.
    WebAddress m_address;
    QByteArray m_method;
    QByteArray m_proxy; ///< As in the environment; empty if there is none.
    int m_handshakes = 0;
    CurlList m_headers;
};

} // namespace ostrel
