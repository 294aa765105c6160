#pragma once

#include <QByteArray>

namespace ostrel {

class WebAddress;

/// The proxies that the environment names: http_proxy, https_proxy and all_proxy, and in no_proxy
/// the hosts that don't use one. All but the first may be in small letters or in capitals.
class Proxies
{
public:
    [[nodiscard]] static Proxies fromEnvironment();

    /// The proxy for a request to @p address, as in the environment; empty if there is none. This
    /// computer's own addresses never use one: another computer would take them for its own.
    [[nodiscard]] QByteArray proxyFor(const WebAddress &address) const;

private:
    QByteArray m_forHttp;
    QByteArray m_forHttps;
    QByteArray m_exceptions;
};

/// Whether @p exceptions, a list in the form of no_proxy, contains @p host: as a name, as the end
/// of a name, as an address, as a block of addresses ("10.0.0.0/8"), or because it is "*".
[[nodiscard]] bool isProxyException(const QByteArray &exceptions, const QByteArray &host);

} // namespace ostrel
