#pragma once

#include <QByteArray>
#include <QFuture>
#include <QString>

#include <chrono>
#include <memory>

namespace ostrel {

class BodyReader;
class TlsDelegate;

/// The addresses that a request may connect to. Loopback, private and link-local ones aren't
/// public.
enum class Reach {
    everywhere,
    outwards,   ///< Once a redirect hop reached a public address, only public ones.
    publicOnly, ///< Only public ones, from the first hop on.
};

struct HttpRequest
{
    QByteArray url;    ///< Absolute, encoded (RFC 3986). Only http and https are fetched.
    QByteArray method; ///< "GET", "HEAD" or "POST"; a POST carries no body.
    QByteArray userAgent;
    std::chrono::milliseconds timeout; ///< For the whole exchange: look-up, all hops, the body.
    qsizetype bodyLimit = 0;           ///< Upper bound for the kept body, in bytes after decoding.
    std::shared_ptr<TlsDelegate> tlsDelegate; ///< May be null.
    /// Reads the last hop's body; may be null. A body that is neither read nor kept isn't decoded.
    std::shared_ptr<BodyReader> bodyReader = nullptr;
    Reach reach = Reach::everywhere;
};

struct HttpResult
{
    /// False if no complete response arrived; `error` then says why.
    bool hasResponse = false;
    int statusCode = 0; ///< Of the last hop.
    /// The first bytes of the last hop's body, decoded, up to the request's bodyLimit.
    QByteArray body;
    bool isBodyTruncated = false;
    /// Whether the request's bodyReader has read the whole body. Reading is given up if the reader
    /// can't keep up with the site, or if the body doesn't match its encoding.
    bool isBodyRead = false;
    /// Whether the last hop's response came from a public address.
    bool isFromPublicAddress = false;
    /// From the request's admission to its end, measured on the I/O thread, to the microsecond.
    std::chrono::microseconds elapsed{0};
    QString error; ///< One line in the library's own words.
};

struct TcpResult
{
    bool isConnected = false;
    /// From the attempt's admission to its end, measured on the I/O thread, to the microsecond.
    std::chrono::microseconds elapsed{0};
};

/// All network access of the program. Any thread.
///
/// A future finishes with exactly one result, at most half a second after the time-out, which
/// counts from the admission. It is cancelled instead if dropConnections() is called or the network
/// is destroyed first. Time spent waiting for one of our own slots, for a free look-up or for the
/// trusted certificates isn't counted.
class Network
{
public:
    Network() = default;
    Network(const Network &) = delete;
    Network &operator=(const Network &) = delete;
    virtual ~Network() = default;

    /// Fetches a web address. Requests share nothing: each has its own connection, TLS session and
    /// cookie jar, and none of them is kept. Look-ups aren't cached either, but one that is in
    /// progress serves all requests for its name. Up to 20 redirects are followed, to http and
    /// https only; POST becomes GET on 301, 302 and 303. The proxies named in the environment are
    /// used, but never for this computer's own addresses.
    [[nodiscard]] virtual QFuture<HttpResult> fetch(const HttpRequest &request) = 0;

    /// Checks whether a TCP connection can be opened. Resolves @p host (a name, an IPv4 or an IPv6
    /// address, without brackets) and connects to @p port, trying the addresses of both families
    /// (happy eyeballs, RFC 8305), all within @p timeout. A refusal ends the attempt at once.
    /// Nothing is sent or received, and no proxy is used.
    [[nodiscard]] virtual QFuture<TcpResult> connect(const QString &host, quint16 port,
                                                     std::chrono::milliseconds timeout) = 0;

    /// Drops all sockets and look-ups, which are worthless after a sleep or on another network. All
    /// pending requests are cancelled.
    virtual void dropConnections() = 0;
};

} // namespace ostrel
