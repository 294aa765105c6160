#include "HostileConnection.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace ostrel::test {

namespace {

constexpr auto headEnd = "\r\n\r\n";

/// A connected socket; -1 if nothing listens on @p port.
int connectTo(quint16 port)
{
    const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0)
        return descriptor;
    close(descriptor);
    return -1;
}

SeenRequest parseHead(const QByteArray &head)
{
    QByteArrayList lines = head.split('\n');
    for (QByteArray &line : lines)
        line = line.trimmed();
    const QByteArrayList words = lines.takeFirst().split(' ');
    return {.method = words.value(0), .target = words.value(1), .headers = lines};
}

} // namespace

std::optional<QByteArray> SeenRequest::header(const QByteArray &name) const
{
    for (const QByteArray &line : headers) {
        const auto colon = line.indexOf(':');
        if (line.left(colon).compare(name, Qt::CaseInsensitive) == 0)
            return line.mid(colon + 1).trimmed();
    }
    return std::nullopt;
}

HostileConnection::HostileConnection(int descriptor, int stopDescriptor)
    : m_descriptor(descriptor)
    , m_stopDescriptor(stopDescriptor)
{
    fcntl(m_descriptor, F_SETFL, O_NONBLOCK);
}

HostileConnection::~HostileConnection()
{
    close(m_descriptor);
}

std::optional<SeenRequest> HostileConnection::readRequest()
{
    QByteArray head;
    while (!head.contains(headEnd)) {
        const auto bytes = receive();
        if (!bytes)
            return std::nullopt;
        head += *bytes;
    }
    return parseHead(head.left(head.indexOf(headEnd)));
}

std::optional<QByteArray> HostileConnection::receive()
{
    std::array<char, 4096> buffer{};
    if (!waitFor(POLLIN))
        return std::nullopt;
    const ssize_t count = recv(m_descriptor, buffer.data(), buffer.size(), 0);
    return count > 0 ? std::optional(QByteArray(buffer.data(), count)) : std::nullopt;
}

bool HostileConnection::send(const QByteArray &bytes)
{
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        if (!waitFor(POLLOUT))
            return false;
        const auto left = static_cast<std::size_t>(bytes.size() - sent);
        const ssize_t count = ::send(m_descriptor, bytes.constData() + sent, left, MSG_NOSIGNAL);
        if (count < 0 && errno != EAGAIN)
            return false;
        sent += std::max<ssize_t>(count, 0);
    }
    return true;
}

bool HostileConnection::respond(const QByteArray &status, const QByteArray &body,
                                const QByteArray &headers)
{
    return send("HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " +
                QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
}

bool HostileConnection::pause(std::chrono::milliseconds time)
{
    pollfd stop{.fd = m_stopDescriptor, .events = POLLIN, .revents = 0};
    return poll(&stop, 1, static_cast<int>(time.count())) == 0;
}

void HostileConnection::waitForTheEnd()
{
    while (receive()) {
    }
}

void HostileConnection::relayTo(quint16 port, const Filter &fromPeer, const Filter &toPeer)
{
    const int descriptor = connectTo(port);
    if (descriptor < 0)
        return;
    HostileConnection other(descriptor, m_stopDescriptor);
    std::array<pollfd, 3> all{pollfd{.fd = m_descriptor, .events = POLLIN, .revents = 0},
                              pollfd{.fd = descriptor, .events = POLLIN, .revents = 0},
                              pollfd{.fd = m_stopDescriptor, .events = POLLIN, .revents = 0}};
    while (poll(all.data(), all.size(), -1) > 0 && all[2].revents == 0) {
        if (all[0].revents != 0 && !passOnTo(other, fromPeer))
            return;
        if (all[1].revents != 0 && !other.passOnTo(*this, toPeer))
            return;
    }
}

void HostileConnection::reset()
{
    const linger immediately{.l_onoff = 1, .l_linger = 0};
    setsockopt(m_descriptor, SOL_SOCKET, SO_LINGER, &immediately, sizeof immediately);
}

bool HostileConnection::passOnTo(HostileConnection &other, const Filter &filter)
{
    std::array<char, 4096> buffer{};
    const ssize_t count = recv(m_descriptor, buffer.data(), buffer.size(), 0);
    return count > 0 && other.send(filter(QByteArray(buffer.data(), count)));
}

bool HostileConnection::waitFor(short events)
{
    std::array<pollfd, 2> both{pollfd{.fd = m_descriptor, .events = events, .revents = 0},
                               pollfd{.fd = m_stopDescriptor, .events = POLLIN, .revents = 0}};
    return poll(both.data(), both.size(), -1) > 0 && both[1].revents == 0;
}

} // namespace ostrel::test
