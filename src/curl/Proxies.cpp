#include "Proxies.h"

#include "WebAddress.h"

#include <QByteArrayList>

#include <algorithm>
#include <arpa/inet.h>
#include <initializer_list>
#include <netinet/in.h>

namespace ostrel {

namespace {

/// The first of @p names that is set and not empty.
QByteArray variable(std::initializer_list<const char *> names)
{
    for (const char *name : names) {
        if (QByteArray value = qgetenv(name); !value.isEmpty())
            return value;
    }
    return {};
}

/// The bytes of a literal address; empty for a name.
QByteArray addressBytes(const QByteArray &host)
{
    QByteArray bytes(sizeof(in6_addr), '\0');
    if (inet_pton(AF_INET6, host.constData(), bytes.data()) == 1)
        return bytes;
    return inet_pton(AF_INET, host.constData(), bytes.data()) == 1 ? bytes.first(sizeof(in_addr))
                                                                   : QByteArray();
}

bool haveSameBits(const QByteArray &address, const QByteArray &other, int count)
{
    const int whole = count / 8;
    if (address.first(whole) != other.first(whole))
        return false;
    const auto differing = static_cast<quint8>(count % 8 == 0 ? 0 : address[whole] ^ other[whole]);
    return differing >> (8 - count % 8) == 0;
}

bool isInBlock(const QByteArray &address, const QByteArray &block)
{
    const QByteArrayList parts = block.split('/');
    const QByteArray network = addressBytes(parts.constFirst());
    const int most = static_cast<int>(address.size()) * 8;
    const int length = parts.size() == 2 ? parts.at(1).toInt() : most;
    return network.size() == address.size() && length > 0 && length <= most &&
           haveSameBits(address, network, length);
}

bool isNameWithin(const QByteArray &name, QByteArray domain)
{
    while (domain.startsWith('.'))
        domain.remove(0, 1);
    if (domain.endsWith('.'))
        domain.chop(1);
    return !domain.isEmpty() && (name == domain || name.endsWith('.' + domain));
}

QByteArray plainHost(const QByteArray &host)
{
    QByteArray plain = host.toLower();
    if (plain.startsWith('['))
        plain = plain.sliced(1, plain.size() - 2);
    if (plain.endsWith('.'))
        plain.chop(1);
    return plain;
}

bool isLoopback(const QByteArray &host)
{
    static const QByteArray own("localhost,127.0.0.0/8,::1");
    return isProxyException(own, host);
}

} // namespace

bool isProxyException(const QByteArray &exceptions, const QByteArray &host)
{
    if (exceptions == "*")
        return true;
    const QByteArray plain = plainHost(host);
    const QByteArray address = addressBytes(plain);
    QByteArray list = exceptions.toLower();
    list.replace(',', ' ');
    const QByteArrayList entries = list.simplified().split(' ');
    return std::ranges::any_of(entries, [&](const QByteArray &entry) {
        return address.isEmpty() ? isNameWithin(plain, entry)
                                 : isInBlock(address, plainHost(entry));
    });
}

Proxies Proxies::fromEnvironment()
{
    const QByteArray forAll = variable({"all_proxy", "ALL_PROXY"});
    // Not HTTP_PROXY, which a web server sets from a request's header.
    const QByteArray forHttp = variable({"http_proxy"});
    const QByteArray forHttps = variable({"https_proxy", "HTTPS_PROXY"});
    Proxies proxies;
    proxies.m_forHttp = forHttp.isEmpty() ? forAll : forHttp;
    proxies.m_forHttps = forHttps.isEmpty() ? forAll : forHttps;
    proxies.m_exceptions = variable({"no_proxy", "NO_PROXY"});
    return proxies;
}

QByteArray Proxies::proxyFor(const WebAddress &address) const
{
    const QByteArray proxy = address.isTls() ? m_forHttps : m_forHttp;
    const QByteArray host = address.place().host;
    const bool isDirect = isLoopback(host) || isProxyException(m_exceptions, host);
    return isDirect ? QByteArray() : proxy;
}

} // namespace ostrel
