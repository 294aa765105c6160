#pragma once

#include "CurlHandles.h"

#include <QByteArray>

#include <memory>
#include <optional>
#include <utility>

namespace ostrel {

/// A host to look up, and the port to connect to.
struct Place
{
    QByteArray host; ///< As passed to a resolver: in ASCII, without brackets.
    quint16 port = 0;

    friend bool operator==(const Place &, const Place &) = default;
};

/// Whether @p host needs a resolver. Not for addresses, and not for localhost and names below it,
/// which the library knows by itself.
[[nodiscard]] bool needsLookUp(const QByteArray &host);

/// A URL and its parts.
class WebAddress
{
public:
    /// Nullopt if @p text isn't a URL; any scheme is allowed. @p flags are those of curl_url_set().
    [[nodiscard]] static std::optional<WebAddress> parse(const QByteArray &text,
                                                         unsigned int flags = 0);

    /// The same for a URL made of parts.
    [[nodiscard]] static std::optional<WebAddress> of(CURLU *url);

    /// The target of a redirect from here to @p location, which may be relative. Nullopt if that
    /// isn't a URL. User names and passwords are neither added nor removed.
    [[nodiscard]] std::optional<WebAddress> redirectedTo(const QByteArray &location) const;
    /// Why redirectedTo() returns nullopt, in the library's words.
    [[nodiscard]] QByteArray redirectProblem(const QByteArray &location) const;
    /// This address, with the user name and the password of @p other if it has none of its own.
    [[nodiscard]] WebAddress withCredentialsOf(const WebAddress &other) const;

    [[nodiscard]] QByteArray text() const { return part(CURLUPART_URL); }
    [[nodiscard]] QByteArray scheme() const { return part(CURLUPART_SCHEME); }
    [[nodiscard]] bool isHttp() const { return scheme() == "http" || isTls(); }
    [[nodiscard]] bool isTls() const { return scheme() == "https"; }
    /// The host and the port; without a port, the scheme's.
    [[nodiscard]] Place place() const;
    /// The same, but with @p port if the address has none, whatever its scheme.
    [[nodiscard]] Place placeOr(quint16 port) const;
    /// Whether scheme, host and port are the same.
    [[nodiscard]] bool hasSameOrigin(const WebAddress &other) const;

private:
    explicit WebAddress(CurlUrl url)
        : m_url(std::move(url))
    {
    }

    [[nodiscard]] QByteArray part(CURLUPart part, unsigned int flags = 0) const;

    // Shared, so that copies are cheap; never modified.
    std::shared_ptr<CURLU> m_url;
};

} // namespace ostrel
