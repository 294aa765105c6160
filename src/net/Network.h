#pragma once

#include <QByteArray>
#include <QFuture>
#include <QString>

#include <chrono>
#include <memory>

namespace ostrel {

class BodyReader;
class TlsDelegate;

/// Which addresses a request may connect to. Loopback, private and link-local ones aren't public.
enum class Reach {
    everywhere,
    outwards,   ///< From the first public address on, on the way of redirects, only to public ones.
    publicOnly, ///< To public ones from the beginning.
};

struct HttpRequest
{
    QByteArray url;    ///< Absolute, encoded (RFC 3986). Only http and https are fetched.
    QByteArray method; ///< "GET", "HEAD" or "POST"; a POST carries no body.
    QByteArray userAgent;
    std::chrono::milliseconds timeout; ///< Bounds the whole exchange: look-up, all hops, the body.
    qsizetype bodyLimit = 0;           ///< How much of the body to keep, in bytes after decoding.
    std::shared_ptr<TlsDelegate> tlsDelegate; ///< May be null.
    /// Reads the last hop's body; may be null. A body that nobody reads or keeps isn't decoded.
    std::shared_ptr<BodyReader> bodyReader = nullptr;
    Reach reach = Reach::everywhere;
};

struct HttpResult
{
    /// False where no complete response arrived; `error` then says why.
    bool hasResponse = false;
    int statusCode = 0; ///< Of the last hop.
    /// The first bytes of the last hop's body, decoded, up to the request's bodyLimit.
    QByteArray body;
    bool isBodyTruncated = false;
    /// Whether the request's bodyReader has read the whole body. Reading is given up when it can't
    /// keep up with the site, or when the body isn't what its encoding says.
    bool isBodyRead = false;
    /// Whether the last hop's answer came from a public address.
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

/// All that the program does with the network. Any thread.
///
/// A future finishes, with exactly one result, at most half a second after the time-out counted
/// from the admission; it is cancelled instead if dropConnections() or the network's end comes
/// first. What waits for a place among our own, for a free look-up or for the trusted certificates
/// spends none of its time.
class Network
{
public:
    Network() = default;
    Network(const Network &) = delete;
    Network &operator=(const Network &) = delete;
    virtual ~Network() = default;

    /// Fetches a web address. Every request stands alone: a connection, TLS session and cookie jar
    /// of its own, none of them kept. Nor are look-ups, but one that is under way serves all that
    /// ask for its name. Up to 20 redirects are followed, to http and https only; POST becomes GET
    /// on 301, 302 and 303. The proxies that the environment names are used, for no address of this
    /// computer's.
    [[nodiscard]] virtual QFuture<HttpResult> fetch(const HttpRequest &request) = 0;

    /// Sees whether a TCP connection can be opened. Resolves @p host (a name, an IPv4 or an IPv6
    /// address, without brackets) and connects to @p port, trying the addresses of both families
    /// (happy eyeballs, RFC 8305), all within @p timeout. A refusal ends the attempt at once.
    /// Nothing is sent or received, and no proxy is used.
    [[nodiscard]] virtual QFuture<TcpResult> connect(const QString &host, quint16 port,
                                                     std::chrono::milliseconds timeout) = 0;

    /// After a sleep, or on another network, sockets and look-ups are worthless: drops them all.
    /// What was asked for before is cancelled.
    virtual void dropConnections() = 0;
};

} // namespace ostrel
