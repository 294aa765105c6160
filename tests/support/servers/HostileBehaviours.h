#pragma once

#include "HostileServer.h"

#include <QHash>

#include <chrono>

namespace ostrel::test {

// What a HostileServer may do on a connection. Unless said otherwise, a behaviour first waits for a
// request (Greeting::ReadRequest).

/// Never sends anything.
void staySilent(HostileConnection &connection, const SeenRequest &request);
/// Promises a long body and sends a byte of it every 20 ms.
void dripBytes(HostileConnection &connection, const SeenRequest &request);
/// Sends response headers without end, as fast as possible.
void sendEndlessHeaders(HostileConnection &connection, const SeenRequest &request);
/// Sends a header of one endless line.
void sendEndlessHeaderLine(HostileConnection &connection, const SeenRequest &request);
/// Redirects forever to another path of its own, each time after 1 ms.
void redirectEndlessly(HostileConnection &connection, const SeenRequest &request);
/// Sends a body without end, as fast as possible.
void sendEndlessBody(HostileConnection &connection, const SeenRequest &request);
/// Sends bytes that aren't HTTP and closes.
void sendGarbage(HostileConnection &connection, const SeenRequest &request);
/// Resets the connection in the middle of a body.
void resetInBody(HostileConnection &connection, const SeenRequest &request);
/// Closes before the body has the promised length.
void sendShortBody(HostileConnection &connection, const SeenRequest &request);
/// Sends a body in chunks and closes before the last.
void breakOffChunks(HostileConnection &connection, const SeenRequest &request);
/// Sends a body without a length, which ends with the connection: "until the end".
void sendBodyUntilClose(HostileConnection &connection, const SeenRequest &request);
/// Sends zeros that gzip has compressed to a thousandth: 256 MiB when decoded.
void sendGzipBomb(HostileConnection &connection, const SeenRequest &request);
/// The same, without end.
void sendEndlessGzipBomb(HostileConnection &connection, const SeenRequest &request);
/// Sends zeros without end; four bytes of it decode to 128 KiB (Zstandard).
void sendEndlessZstdBomb(HostileConnection &connection, const SeenRequest &request);
/// Sends "gzip decoded" in gzip.
void sendGzip(HostileConnection &connection, const SeenRequest &request);
/// "/" sets a cookie and redirects to "/next", which answers 200 if it gets the cookie and 412
/// otherwise. "/show" answers with the cookies that it got.
void askForCookie(HostileConnection &connection, const SeenRequest &request);
/// "/3" redirects to "/2" and so on down to "/0", which answers "arrived".
void countRedirectsDown(HostileConnection &connection, const SeenRequest &request);
/// "/301" redirects to "/arrived" with that status, and likewise for every other; "/arrived"
/// answers with the method of its request.
void redirectWithStatus(HostileConnection &connection, const SeenRequest &request);
/// "/404" answers with that status and the body "Status 404".
void answerWithStatus(HostileConnection &connection, const SeenRequest &request);
/// Without Greeting: answers a TLS client's hello, and then sends an invalid certificate.
void sendBrokenCertificate(HostileConnection &connection, const SeenRequest &request);

/// Answers "OK" after @p delay.
[[nodiscard]] HostileServer::Behaviour answerAfter(std::chrono::milliseconds delay);
/// Answers "OK" with a header of one line of @p size bytes.
[[nodiscard]] HostileServer::Behaviour answerWithHeaderOf(qsizetype size);
/// Redirects to @p location.
[[nodiscard]] HostileServer::Behaviour redirectTo(const QByteArray &location);
/// Plays a proxy whose whole network is this computer: a tunnel to an address in @p network, such
/// as "shop.example:443", leads to that port of 127.0.0.1; everything else is refused with 502.
[[nodiscard]] HostileServer::Behaviour tunnelInto(const QHash<QByteArray, quint16> &network);
/// Answers 200 with @p body.
[[nodiscard]] HostileServer::Behaviour answerWith(const QByteArray &body);
/// Answers 200 with @p body, declared to be encoded as @p encoding.
[[nodiscard]] HostileServer::Behaviour answerEncoded(const QByteArray &encoding,
                                                     const QByteArray &body);

} // namespace ostrel::test
