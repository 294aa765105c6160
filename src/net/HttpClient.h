#pragma once

#include "TlsDelegate.h"

#include <QByteArray>
#include <QFuture>
#include <QString>

#include <chrono>
#include <memory>

namespace ostrel {

class IoThread;

struct HttpRequest
{
    QByteArray url;    ///< Absolute, encoded (RFC 3986). Only http and https are fetched.
    QByteArray method; ///< "GET", "HEAD" or "POST"; a POST carries no body.
    QByteArray userAgent;
    std::chrono::milliseconds timeout; ///< Bounds the whole exchange: look-up, all hops, the body.
    qsizetype bodyLimit = 0;           ///< How much of the body to keep, in bytes after decoding.
    std::shared_ptr<TlsDelegate> tlsDelegate; ///< May be null.
};

struct HttpResult
{
    /// False where no complete response arrived; `error` then says why.
    bool hasResponse = false;
    int statusCode = 0; ///< Of the last hop.
    /// The first bytes of the last hop's body, decoded, up to the request's bodyLimit.
    QByteArray body;
    bool isBodyTruncated = false;
    /// From the request's admission to its end, measured on the I/O thread, to the microsecond.
    std::chrono::microseconds elapsed{0};
    QString error; ///< One line in the library's own words.
};

/// Fetches web addresses. Every request stands alone: a connection, look-up, TLS session and
/// cookie jar of its own, none of them kept. Up to 20 redirects are followed, to http and https
/// only; POST becomes GET on 301, 302 and 303.
class HttpClient
{
public:
    /// @p ioThread outlives the client.
    explicit HttpClient(IoThread &ioThread);

    /// Starts @p request. May be called from any thread. The future finishes, with exactly one
    /// result, at most half a second after the request's time-out counted from its admission; only
    /// where the I/O thread ends first is it cancelled instead.
    [[nodiscard]] QFuture<HttpResult> fetch(const HttpRequest &request);

private:
    IoThread &m_ioThread;
};

} // namespace ostrel
