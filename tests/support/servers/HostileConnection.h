#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QtGlobal>

#include <chrono>
#include <functional>
#include <optional>

namespace ostrel::test {

/// A request's head, as a server saw it.
struct SeenRequest
{
    QByteArray method;
    QByteArray target;      ///< For example "/status/204?x=1".
    QByteArrayList headers; ///< One line each, without the line's end.

    /// The value of the header @p name (any case); nothing if there is none.
    [[nodiscard]] std::optional<QByteArray> header(const QByteArray &name) const;
};

/// The server's end of one connection. Every function gives up, returning false or nothing, when
/// the peer has gone or the server stops.
class HostileConnection
{
public:
    /// Takes ownership of @p descriptor. The server makes @p stopDescriptor readable when it stops.
    HostileConnection(int descriptor, int stopDescriptor);
    ~HostileConnection();
    HostileConnection(const HostileConnection &) = delete;
    HostileConnection &operator=(const HostileConnection &) = delete;

    [[nodiscard]] std::optional<SeenRequest> readRequest();
    /// Returns some bytes as soon as there are any.
    [[nodiscard]] std::optional<QByteArray> receive();
    bool send(const QByteArray &bytes);
    /// Sends a whole response: a head made of @p status ("200 OK") and @p headers (each line with
    /// its end), Content-Length, Connection: close, and @p body.
    bool respond(const QByteArray &status, const QByteArray &body = {},
                 const QByteArray &headers = {});
    /// Waits for @p time.
    bool pause(std::chrono::milliseconds time);
    /// Waits until the peer has gone or the server stops.
    void waitForTheEnd();
    /// Transforms the bytes that are relayed.
    using Filter = std::function<QByteArray(const QByteArray &)>;
    /// Relays bytes in both directions between the peer and @p port of 127.0.0.1, until either end
    /// has gone. Bytes from the peer pass through @p fromPeer, bytes to the peer through @p toPeer.
    void relayTo(quint16 port, const Filter &fromPeer = asTheyAre,
                 const Filter &toPeer = asTheyAre);
    /// Closes with a reset instead of an orderly end.
    void reset();

private:
    [[nodiscard]] static QByteArray asTheyAre(const QByteArray &bytes) { return bytes; }
    bool passOnTo(HostileConnection &other, const Filter &filter);
    [[nodiscard]] bool waitFor(short events);

    int m_descriptor;
    int m_stopDescriptor;
};

} // namespace ostrel::test
