#include "HostileBehaviours.h"

#include <array>
#include <zlib.h>

namespace ostrel::test {

using namespace std::chrono_literals;

namespace {

constexpr auto openEndedHead = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n";

QByteArray encodedHead(const QByteArray &encoding)
{
    return "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Encoding: " + encoding + "\r\n\r\n";
}

QByteArray numberOf(const SeenRequest &request)
{
    return request.target.mid(1);
}

/// One zlib call over the whole of @p plain; @p windowBits and @p flush are zlib's parameters.
QByteArray deflated(const QByteArray &plain, int windowBits, int flush)
{
    QByteArray out(plain.size() + 256, '\0');
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(plain.constData()));
    stream.avail_in = static_cast<uInt>(plain.size());
    stream.next_out = reinterpret_cast<Bytef *>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    deflate(&stream, flush);
    out.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return out;
}

QByteArray mebibyteOfZeros()
{
    return QByteArray(1024 * 1024, '\0');
}

/// After a full flush the decoder needs nothing from before, so the piece can be sent repeatedly.
QByteArray repeatableDeflated(const QByteArray &plain)
{
    return deflated(plain, -MAX_WBITS, Z_FULL_FLUSH);
}

/// The heads of the response and of the gzip file.
QByteArray gzipHead()
{
    return encodedHead("gzip") + QByteArray("\x1F\x8B\x08\0\0\0\0\0\0\x03", 10);
}

QByteArray littleEndian(quint32 number)
{
    QByteArray bytes;
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes.append(static_cast<char>((number >> shift) & 0xFFU));
    return bytes;
}

QByteArray bigEndian(qsizetype number, int size)
{
    QByteArray bytes;
    for (int i = size - 1; i >= 0; --i)
        bytes.append(static_cast<char>((number >> (8 * i)) & 0xFF));
    return bytes;
}

QByteArray tlsHandshakeRecord(char type, const QByteArray &message)
{
    const QByteArray handshake = type + bigEndian(message.size(), 3) + message;
    return QByteArray("\x16\x03\x03") + bigEndian(handshake.size(), 2) + handshake;
}

/// TLS 1.2 with ECDHE-RSA-AES128-GCM-SHA256, no session, no extensions.
QByteArray tlsServerHello()
{
    const QByteArray random(32, 'r');
    return tlsHandshakeRecord('\x02', "\x03\x03" + random + QByteArray("\x00\xC0\x2F\x00", 4));
}

QByteArray tlsCertificateMessage(const QByteArray &certificate)
{
    const QByteArray entry = bigEndian(certificate.size(), 3) + certificate;
    return tlsHandshakeRecord('\x0B', bigEndian(entry.size(), 3) + entry);
}

} // namespace

void staySilent(HostileConnection &connection, const SeenRequest &)
{
    connection.waitForTheEnd();
}

void dripBytes(HostileConnection &connection, const SeenRequest &)
{
    connection.send("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
    while (connection.pause(20ms) && connection.send(".")) {
    }
}

void sendEndlessHeaders(HostileConnection &connection, const SeenRequest &)
{
    connection.send("HTTP/1.1 200 OK\r\n");
    while (connection.send("X-More: and more\r\n")) {
    }
}

void sendEndlessHeaderLine(HostileConnection &connection, const SeenRequest &)
{
    connection.send("HTTP/1.1 200 OK\r\nX-Long: ");
    while (connection.send(QByteArray(1000, 'x'))) {
    }
}

void redirectEndlessly(HostileConnection &connection, const SeenRequest &request)
{
    connection.pause(1ms);
    const int hop = numberOf(request).toInt();
    connection.respond("302 Found", {}, "Location: /" + QByteArray::number(hop + 1) + "\r\n");
}

void sendEndlessBody(HostileConnection &connection, const SeenRequest &)
{
    connection.send(openEndedHead);
    while (connection.send(QByteArray(65536, 'x'))) {
    }
}

void sendGarbage(HostileConnection &connection, const SeenRequest &)
{
    connection.send(QByteArray("\x01\x02garbage\r\n\x00\xFF\r\n\r\n", 17));
}

void resetInBody(HostileConnection &connection, const SeenRequest &)
{
    connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nsome");
    connection.reset();
}

void sendShortBody(HostileConnection &connection, const SeenRequest &)
{
    connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nsome");
}

void breakOffChunks(HostileConnection &connection, const SeenRequest &)
{
    connection.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nsome\r\n");
}

void sendBodyUntilClose(HostileConnection &connection, const SeenRequest &)
{
    connection.send(openEndedHead + QByteArray("until the end"));
}

void sendGzipBomb(HostileConnection &connection, const SeenRequest &)
{
    constexpr int pieces = 256;
    const QByteArray zeros = mebibyteOfZeros();
    const QByteArray piece = repeatableDeflated(zeros);
    const auto *plain = reinterpret_cast<const Bytef *>(zeros.constData());
    const uLong pieceSum = crc32(0, plain, static_cast<uInt>(zeros.size()));

    connection.send(gzipHead());
    uLong sum = 0;
    for (int i = 0; i < pieces && connection.send(piece); ++i)
        sum = crc32_combine(sum, pieceSum, static_cast<z_off_t>(zeros.size()));
    const QByteArray lastBlock("\x03\x00", 2);
    connection.send(lastBlock + littleEndian(static_cast<quint32>(sum)) +
                    littleEndian(static_cast<quint32>(zeros.size() * pieces)));
}

void sendEndlessGzipBomb(HostileConnection &connection, const SeenRequest &)
{
    const QByteArray piece = repeatableDeflated(mebibyteOfZeros());
    connection.send(gzipHead());
    while (connection.send(piece)) {
    }
}

void sendEndlessZstdBomb(HostileConnection &connection, const SeenRequest &)
{
    // A frame with a window of 128 KiB, then blocks that repeat one byte as often as fits into it.
    connection.send(encodedHead("zstd") + QByteArray("\x28\xB5\x2F\xFD\x00\x38", 6));
    const QByteArray block("\x02\x00\x10\x00", 4);
    while (connection.send(block.repeated(4096))) {
    }
}

void sendGzip(HostileConnection &connection, const SeenRequest &)
{
    constexpr int gzipFormat = MAX_WBITS + 16;
    connection.respond("200 OK", deflated("gzip decoded", gzipFormat, Z_FINISH),
                       "Content-Encoding: gzip\r\n");
}

void askForCookie(HostileConnection &connection, const SeenRequest &request)
{
    const QByteArray cookie = request.header("Cookie").value_or("none");
    if (request.target == "/show")
        connection.respond("200 OK", cookie);
    else if (request.target == "/next")
        connection.respond(cookie == "seen=yes" ? "200 OK" : "412 Precondition Failed");
    else
        connection.respond("302 Found", {},
                           "Set-Cookie: seen=yes; Path=/; Max-Age=3600\r\nLocation: /next\r\n");
}

void countRedirectsDown(HostileConnection &connection, const SeenRequest &request)
{
    const int left = numberOf(request).toInt();
    if (left == 0)
        connection.respond("200 OK", "arrived");
    else
        connection.respond("302 Found", {}, "Location: /" + QByteArray::number(left - 1) + "\r\n");
}

void redirectWithStatus(HostileConnection &connection, const SeenRequest &request)
{
    if (request.target == "/arrived")
        connection.respond("200 OK", request.method);
    else
        connection.respond(numberOf(request) + " Elsewhere", {}, "Location: /arrived\r\n");
}

void answerWithStatus(HostileConnection &connection, const SeenRequest &request)
{
    const QByteArray status = numberOf(request);
    connection.respond(status + " As asked", "Status " + status);
}

void sendBrokenCertificate(HostileConnection &connection, const SeenRequest &)
{
    connection.send(tlsServerHello() + tlsCertificateMessage("this is no certificate"));
    connection.waitForTheEnd();
}

HostileServer::Behaviour answerAfter(std::chrono::milliseconds delay)
{
    return [delay](HostileConnection &connection, const SeenRequest &) {
        if (connection.pause(delay))
            connection.respond("200 OK", "OK");
    };
}

HostileServer::Behaviour answerWithHeaderOf(qsizetype size)
{
    return [size](HostileConnection &connection, const SeenRequest &) {
        connection.respond("200 OK", "OK", "X-Large: " + QByteArray(size - 9, 'x') + "\r\n");
    };
}

HostileServer::Behaviour redirectTo(const QByteArray &location)
{
    return [location](HostileConnection &connection, const SeenRequest &) {
        connection.respond("302 Found", {}, "Location: " + location + "\r\n");
    };
}

HostileServer::Behaviour tunnelInto(const QHash<QByteArray, quint16> &network)
{
    return [network](HostileConnection &connection, const SeenRequest &request) {
        const auto port = network.constFind(request.target);
        if (request.method != "CONNECT" || port == network.cend())
            connection.respond("502 Bad Gateway");
        else if (connection.send("HTTP/1.1 200 Connection established\r\n\r\n"))
            connection.relayTo(*port);
    };
}

HostileServer::Behaviour answerWith(const QByteArray &body)
{
    return [body](HostileConnection &connection, const SeenRequest &) {
        connection.respond("200 OK", body);
    };
}

HostileServer::Behaviour answerEncoded(const QByteArray &encoding, const QByteArray &body)
{
    return [encoding, body](HostileConnection &connection, const SeenRequest &) {
        connection.respond("200 OK", body, "Content-Encoding: " + encoding + "\r\n");
    };
}

} // namespace ostrel::test
