#pragma once

#include "CurlHandles.h"

#include <QByteArray>

#include <memory>
#include <optional>
#include <utility>

namespace ostrel {

/// Where a name is looked up for.
struct Place
{
    QByteArray host; ///< As a resolver gets it: in ASCII, without brackets.
    quint16 port = 0;

    friend bool operator==(const Place &, const Place &) = default;
};

/// Whether a resolver has to be asked what @p host means. Not for addresses, and not for localhost
/// and what is below it, which the library knows by itself.
[[nodiscard]] bool needsLookUp(const QByteArray &host);

/// A URL and its parts.
class WebAddress
{
public:
    /// Nothing where @p text is no URL; its scheme may be any. @p flags are those of
    /// curl_url_set().
    [[nodiscard]] static std::optional<WebAddress> parse(const QByteArray &text,
                                                         unsigned int flags = 0);

    /// The same of a URL made of parts.
    [[nodiscard]] static std::optional<WebAddress> of(CURLU *url);

    /// Where a redirect from here to @p location leads, which may be relative. Nothing where that
    /// is no URL. Names and passwords for a site are neither added nor taken away.
    [[nodiscard]] std::optional<WebAddress> redirectedTo(const QByteArray &location) const;
    /// Why redirectedTo() finds nothing, in the library's words.
    [[nodiscard]] QByteArray redirectProblem(const QByteArray &location) const;
    /// This, with the name and the password that @p other holds, where it has none of its own.
    [[nodiscard]] WebAddress withCredentialsOf(const WebAddress &other) const;

    [[nodiscard]] QByteArray text() const { return part(CURLUPART_URL); }
    [[nodiscard]] QByteArray scheme() const { return part(CURLUPART_SCHEME); }
    [[nodiscard]] bool isHttp() const { return scheme() == "http" || isTls(); }
    [[nodiscard]] bool isTls() const { return scheme() == "https"; }
    /// The host and the port, which may be the scheme's.
    [[nodiscard]] Place place() const;
    /// The same, with @p port where the address names none, whatever its scheme.
    [[nodiscard]] Place placeOr(quint16 port) const;
    /// Whether scheme, host and port are the same.
    [[nodiscard]] bool hasSameOrigin(const WebAddress &other) const;

private:
    explicit WebAddress(CurlUrl url)
        : m_url(std::move(url))
    {
    }

    [[nodiscard]] QByteArray part(CURLUPart part, unsigned int flags = 0) const;

    // Shared, so that copies are cheap; never changed.
    std::shared_ptr<CURLU> m_url;
};

} // namespace ostrel
