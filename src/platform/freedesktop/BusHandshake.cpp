#include "BusHandshake.h"

#include "FileDescriptor.h"

#include <QHash>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <memory>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace ostrel {

namespace {

/// No answer to our questions is longer.
constexpr qsizetype maxReceived = 65'536;
constexpr int questions = 2;

using Keys = QHash<QByteArray, QByteArray>;

/// One address: a transport, and its keys.
struct BusAddress
{
    QByteArray transport;
    Keys keys;
};

BusAddress parseAddress(const QByteArray &text)
{
    const qsizetype colon = text.indexOf(':');
    BusAddress address = {.transport = text.first(std::max<qsizetype>(colon, 0)), .keys = {}};
    for (const QByteArray &pair : text.sliced(colon + 1).split(',')) {
        const qsizetype sign = pair.indexOf('=');
        if (sign > 0)
            address.keys.insert(pair.first(sign),
                                QByteArray::fromPercentEncoding(pair.sliced(sign + 1)));
    }
    return address;
}

/// A socket that is connected or connecting; a closed descriptor, with errno, if that fails.
FileDescriptor connectTo(int family, const sockaddr *address, socklen_t size)
{
    FileDescriptor socket(::socket(family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    const int result = uninterrupted([&] { return ::connect(socket.number(), address, size); });
    return result == 0 || errno == EINPROGRESS ? std::move(socket) : FileDescriptor();
}

/// @p path names a file, or an abstract socket if it begins with a null byte.
FileDescriptor connectToUnix(const QByteArray &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || path.size() >= static_cast<qsizetype>(sizeof(address.sun_path))) {
        errno = ENOENT;
        return FileDescriptor();
    }
    std::ranges::copy(path, address.sun_path);
    const bool isAbstract = path.at(0) == '\0';
    const auto size = offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(path.size()) +
                      (isAbstract ? 0 : 1);
    return connectTo(AF_UNIX, reinterpret_cast<const sockaddr *>(&address),
                     static_cast<socklen_t>(size));
}

FileDescriptor connectToTcp(const Keys &keys)
{
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    if (::getaddrinfo(keys.value("host").constData(), keys.value("port").constData(), &hints,
                      &found) != 0) {
        errno = ENOENT;
        return FileDescriptor();
    }
    const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> first(found, &::freeaddrinfo);
    return connectTo(first->ai_family, first->ai_addr, first->ai_addrlen);
}

FileDescriptor connectTo(const BusAddress &address)
{
    if (address.transport == "tcp")
        return connectToTcp(address.keys);
    if (address.transport != "unix") {
        errno = ENOENT;
        return FileDescriptor();
    }
    if (address.keys.contains("abstract"))
        return connectToUnix('\0' + address.keys.value("abstract"));
    if (address.keys.value("runtime") == "yes")
        return connectToUnix(qgetenv("XDG_RUNTIME_DIR") + "/bus");
    return connectToUnix(address.keys.value("path"));
}

/// A call of one of the bus's own methods without arguments, in wire format.
QByteArray driverCall(quint32 serial, const QByteArray &member)
{
    const auto number = [](quint32 value) {
        return QByteArray(reinterpret_cast<const char *>(&value), sizeof(value));
    };
    const auto pad = [](QByteArray &bytes) { bytes.append((8 - bytes.size() % 8) % 8, '\0'); };
    QByteArray fields;
    const auto addField = [&](char code, char type, const QByteArray &text) {
        pad(fields);
        fields += code;
        fields += '\1';
        fields += type;
        fields += '\0';
        fields += number(static_cast<quint32>(text.size())) + text + '\0';
    };
    addField(1, 'o', "/org/freedesktop/DBus");
    addField(2, 's', "org.freedesktop.DBus");
    addField(3, 's', member);
    addField(6, 's', "org.freedesktop.DBus");
    constexpr char order = std::endian::native == std::endian::little ? 'l' : 'B';
    const quint32 noBody = 0;
    QByteArray call = QByteArray() + order + '\1' + '\0' + '\1' + number(noBody) + number(serial) +
                      number(static_cast<quint32>(fields.size())) + fields;
    pad(call);
    return call;
}

/// The conversation with a bus, in order.
class Handshake
{
public:
    Handshake(const FileDescriptor &socket, const QDeadlineTimer &deadline)
        : m_socket(socket)
        , m_deadline(deadline)
    {
    }

    BusAnswer run()
    {
        const QByteArray user = QByteArray::number(::getuid()).toHex();
        if (!waitFor(POLLOUT))
            return BusAnswer::awaited;
        if (!send('\0' + QByteArray("AUTH EXTERNAL ") + user + "\r\n"))
            return BusAnswer::none; // Only now does it turn out that there is no bus.
        if (!receiveLine())
            return BusAnswer::awaited;
        // Other authentication is left to the bus library: a refusal is an answer, too.
        if (!m_received.startsWith("OK "))
            return BusAnswer::given;
        m_received.remove(0, m_received.indexOf("\r\n") + 2);
        const QByteArray calls = driverCall(1, "Hello") + driverCall(2, "GetId");
        return send("BEGIN\r\n" + calls) && receiveReplies() ? BusAnswer::given
                                                             : BusAnswer::awaited;
    }

private:
    [[nodiscard]] bool waitFor(short events)
    {
        pollfd waited = {.fd = m_socket.number(), .events = events, .revents = 0};
        const auto poll = [&] {
            return ::poll(&waited, 1, static_cast<int>(m_deadline.remainingTime()));
        };
        return uninterrupted(poll) > 0;
    }

    /// @p bytes must fit into any socket's buffer.
    [[nodiscard]] bool send(const QByteArray &bytes)
    {
        const auto size = static_cast<std::size_t>(bytes.size());
        return waitFor(POLLOUT) &&
               ::send(m_socket.number(), bytes.constData(), size, MSG_NOSIGNAL) == bytes.size();
    }

    [[nodiscard]] bool receive()
    {
        std::array<char, 1024> bytes;
        if (m_received.size() > maxReceived || !waitFor(POLLIN))
            return false;
        const auto count = ::recv(m_socket.number(), bytes.data(), bytes.size(), 0);
        if (count > 0)
            m_received.append(bytes.data(), count);
        return count > 0;
    }

    [[nodiscard]] bool receiveLine()
    {
        while (!m_received.contains("\r\n")) {
            if (!receive())
                return false;
        }
        return true;
    }

    [[nodiscard]] quint32 number(qsizetype at) const
    {
        quint32 value = 0;
        std::memcpy(&value, m_received.constData() + at, sizeof(value));
        const bool isSwapped =
            (m_received.at(0) == 'l') != (std::endian::native == std::endian::little);
        return isSwapped ? qbswap(value) : value;
    }

    /// Receives messages until every question has its reply, which may be an error.
    [[nodiscard]] bool receiveReplies()
    {
        constexpr qsizetype headSize = 16;
        int replies = 0;
        while (replies < questions) {
            while (m_received.size() < headSize) {
                if (!receive())
                    return false;
            }
            const qint64 size = headSize + (qint64(number(12)) + 7) / 8 * 8 + qint64(number(4));
            if (size > maxReceived)
                return false;
            while (m_received.size() < size) {
                if (!receive())
                    return false;
            }
            const char type = m_received.at(1);
            replies += type == 2 || type == 3 ? 1 : 0;
            m_received.remove(0, size);
        }
        return true;
    }

    const FileDescriptor &m_socket;
    const QDeadlineTimer &m_deadline;
    QByteArray m_received;
};

BusAnswer askAt(const BusAddress &address, const QDeadlineTimer &deadline)
{
    const FileDescriptor socket = connectTo(address);
    // A bus whose backlog is full is there.
    if (!socket.isOpen())
        return errno == EAGAIN ? BusAnswer::awaited : BusAnswer::none;
    return Handshake(socket, deadline).run();
}

} // namespace

BusAnswer askBus(const QByteArray &addresses, const QDeadlineTimer &deadline)
{
    for (const QByteArray &address : addresses.split(';')) {
        const BusAnswer answer = askAt(parseAddress(address), deadline);
        if (answer != BusAnswer::none)
            return answer;
    }
    return BusAnswer::none;
}

} // namespace ostrel
