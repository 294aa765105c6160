#include "HttpHop.h"

#include "Proxies.h"

#include <utility>

namespace ostrel {

namespace {

constexpr auto acceptedEncodings = "Accept-Encoding: gzip, deflate, br, zstd";

/// The library's own defaults.
constexpr quint16 tlsProxyPort = 443;
constexpr quint16 proxyPort = 1080;

/// Nullopt if there is no proxy, or its address isn't one.
std::optional<WebAddress> proxyAddress(const QByteArray &proxy)
{
    return proxy.isEmpty() ? std::nullopt : WebAddress::parse(proxy, CURLU_GUESS_SCHEME);
}

/// Proxies with these schemes get the site's address; all others get its name.
bool wantsAddress(const QByteArray &scheme)
{
    return scheme == "socks5" || scheme == "socks4" || scheme == "socks";
}

void addName(Transfer::Names &names, const Transfer::Name &name)
{
    if (needsLookUp(name.place.host))
        names.push_back(name);
}

QByteArray methodAfter(const QByteArray &method, long status)
{
    const bool isGetFromThen = status == 301 || status == 302 || status == 303;
    return method == "POST" && isGetFromThen ? QByteArray("GET") : method;
}

} // namespace

HttpHop::HttpHop(WebAddress address, QByteArray method, const Proxies &proxies)
    : m_first(address)
    , m_address(std::move(address))
    , m_method(std::move(method))
    , m_proxy(proxies.proxyFor(m_address))
{
}

std::optional<HttpHop> HttpHop::redirectedTo(const QByteArray &location, long status,
                                             const Proxies &proxies) const
{
    const std::optional<WebAddress> target = m_address.redirectedTo(location);
    if (!target)
        return std::nullopt;
    const WebAddress address =
        target->hasSameOrigin(m_first) ? target->withCredentialsOf(m_first) : *target;
    HttpHop next(address, methodAfter(m_method, status), proxies);
    next.m_first = m_first;
    return next;
}

Transfer::Names HttpHop::names() const
{
    Transfer::Names names;
    // The library rejects it at once.
    if (!m_address.isHttp())
        return names;
    const std::optional<WebAddress> proxy = proxyAddress(m_proxy);
    if (proxy) {
        const quint16 port = isProxyTls() ? tlsProxyPort : proxyPort;
        addName(names, {.place = proxy->placeOr(port), .isProxy = true});
    }
    if (!isProxied() || (proxy && wantsAddress(proxy->scheme())))
        addName(names, {.place = m_address.place()});
    return names;
}

bool HttpHop::needsCertificates() const
{
    return m_address.isTls() || isProxyTls();
}

void HttpHop::setUp(CURL *handle)
{
    m_handshakes = 0;
    curl_easy_setopt(handle, CURLOPT_URL, m_address.text().constData());
    curl_easy_setopt(handle, CURLOPT_PROXY, m_proxy.constData());
    // Otherwise the library reads the environment, which has been read already.
    curl_easy_setopt(handle, CURLOPT_NOPROXY, "");
    setMethod(handle);
}

bool HttpHop::isHandshakeWithSite()
{
    const int before = m_handshakes++;
    return m_address.isTls() && before == (isProxyTls() ? 1 : 0);
}

void HttpHop::setMethod(CURL *handle)
{
    curl_easy_setopt(handle, CURLOPT_HTTPGET, 1L);
    m_headers.reset(curl_slist_append(nullptr, acceptedEncodings));
    if (m_method == "HEAD")
        curl_easy_setopt(handle, CURLOPT_NOBODY, 1L);
    if (m_method == "POST") {
        curl_easy_setopt(handle, CURLOPT_POST, 1L);
        curl_easy_setopt(handle, CURLOPT_POSTFIELDS, "");
        curl_easy_setopt(handle, CURLOPT_POSTFIELDSIZE, 0L);
        curl_slist_append(m_headers.get(), "Content-Type:");
    }
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, m_headers.get());
}

bool HttpHop::isProxyTls() const
{
    const std::optional<WebAddress> proxy = proxyAddress(m_proxy);
    return proxy && proxy->isTls();
}

} // namespace ostrel
