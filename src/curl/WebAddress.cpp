#include "WebAddress.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <utility>

namespace ostrel {

namespace {

bool isNumeric(const QByteArray &host)
{
    in6_addr buffer{};
    return inet_pton(AF_INET, host.constData(), &buffer) == 1 ||
           inet_pton(AF_INET6, host.constData(), &buffer) == 1;
}

QByteArray withoutBrackets(const QByteArray &host)
{
    return host.startsWith('[') ? host.sliced(1, host.size() - 2) : host;
}

/// Accepts the same deviations as the library's own redirects.
CURLUcode redirect(CURLU *url, const QByteArray &location)
{
    return curl_url_set(url, CURLUPART_URL, location.constData(),
                        CURLU_URLENCODE | CURLU_ALLOW_SPACE | CURLU_NON_SUPPORT_SCHEME);
}

} // namespace

bool needsLookUp(const QByteArray &host)
{
    const QByteArray name = host.toLower();
    return !isNumeric(name) && name != "localhost" && !name.endsWith(".localhost");
}

std::optional<WebAddress> WebAddress::parse(const QByteArray &text, unsigned int flags)
{
    CurlUrl url(curl_url());
    if (curl_url_set(url.get(), CURLUPART_URL, text.constData(),
                     flags | CURLU_NON_SUPPORT_SCHEME) != CURLUE_OK)
        return std::nullopt;
    return WebAddress(std::move(url));
}

std::optional<WebAddress> WebAddress::of(CURLU *url)
{
    CurlUrl copy(curl_url_dup(url));
    return copy ? std::optional(WebAddress(std::move(copy))) : std::nullopt;
}

std::optional<WebAddress> WebAddress::redirectedTo(const QByteArray &location) const
{
    CurlUrl url(curl_url_dup(m_url.get()));
    if (redirect(url.get(), location) != CURLUE_OK)
        return std::nullopt;
    return WebAddress(std::move(url));
}

QByteArray WebAddress::redirectProblem(const QByteArray &location) const
{
    const CurlUrl url(curl_url_dup(m_url.get()));
    return QByteArray("The redirect target URL could not be parsed: ") +
           curl_url_strerror(redirect(url.get(), location));
}

WebAddress WebAddress::withCredentialsOf(const WebAddress &other) const
{
    const QByteArray user = other.part(CURLUPART_USER);
    if (user.isEmpty() || !part(CURLUPART_USER).isEmpty())
        return *this;
    CurlUrl url(curl_url_dup(m_url.get()));
    curl_url_set(url.get(), CURLUPART_USER, user.constData(), 0);
    curl_url_set(url.get(), CURLUPART_PASSWORD, other.part(CURLUPART_PASSWORD).constData(), 0);
    return WebAddress(std::move(url));
}

Place WebAddress::place() const
{
    return {.host = withoutBrackets(part(CURLUPART_HOST, CURLU_PUNYCODE)),
            .port = part(CURLUPART_PORT, CURLU_DEFAULT_PORT).toUShort()};
}

Place WebAddress::placeOr(quint16 port) const
{
    const QByteArray named = part(CURLUPART_PORT);
    return {.host = place().host, .port = named.isEmpty() ? port : named.toUShort()};
}

bool WebAddress::hasSameOrigin(const WebAddress &other) const
{
    return scheme() == other.scheme() && place() == other.place();
}

QByteArray WebAddress::part(CURLUPart part, unsigned int flags) const
{
    char *text = nullptr;
    if (curl_url_get(m_url.get(), part, &text, flags) != CURLUE_OK)
        return {};
    QByteArray copy(text);
    curl_free(text);
    return copy;
}

} // namespace ostrel
