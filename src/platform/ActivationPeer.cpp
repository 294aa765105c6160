#include "ActivationPeer.h"

#include "ActivationToken.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <optional>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto timeout = 2s;
/// For a request and for its answer, which may be long.
constexpr auto requestTimeout = 30s;
constexpr QByteArrayView requestCommand = "request ";
/// Enough for the full histories of a hundred monitors.
constexpr qsizetype maxRequestLength = qsizetype(64) * 1024 * 1024;
constexpr std::size_t pieceLength = 16384;
constexpr std::pair<StartRequest, QByteArrayView> commands[] = {
    {StartRequest::show, "activate "},
    {StartRequest::addMonitor, "add-monitor "},
    {StartRequest::quit, "end "},
};
constexpr qsizetype maxLineLength = 12 + maxActivationTokenLength;

struct Request
{
    StartRequest request;
    QByteArray token;
};

/// Nullopt if @p line is no command.
std::optional<Request> requestIn(const QByteArray &line)
{
    for (const auto &[request, command] : commands) {
        if (line.startsWith(command) && line.size() - command.size() <= maxActivationTokenLength)
            return Request{.request = request, .token = line.sliced(command.size())};
    }
    return std::nullopt;
}

} // namespace

ActivationPeer::ActivationPeer(FileDescriptor socket, QObject *parent)
    : QObject(parent)
    , m_socket(std::move(socket))
    , m_notifier(m_socket.number(), QSocketNotifier::Read)
    , m_writable(m_socket.number(), QSocketNotifier::Write)
{
    m_writable.setEnabled(false);
    connect(&m_writable, &QSocketNotifier::activated, this, &ActivationPeer::write);
    connect(&m_notifier, &QSocketNotifier::activated, this, &ActivationPeer::read);
    connect(&m_timeout, &QTimer::timeout, this, &ActivationPeer::end);
    m_timeout.start(timeout);
}

QByteArray ActivationPeer::command(StartRequest request)
{
    const auto *found =
        std::ranges::find(commands, request, &std::pair<StartRequest, QByteArrayView>::first);
    return found->second.toByteArray();
}

QByteArray ActivationPeer::requestLine(const QByteArray &request)
{
    return requestCommand.toByteArray() + request + '\n';
}

bool ActivationPeer::isOurs(const FileDescriptor &socket)
{
    ucred peer = {};
    socklen_t size = sizeof(peer);
    return ::getsockopt(socket.number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::getuid();
}

void ActivationPeer::read()
{
    std::array<char, pieceLength> bytes;
    const auto count = ::recv(m_socket.number(), bytes.data(), bytes.size(), 0);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (count <= 0)
        return end();
    take(QByteArray(bytes.data(), count));
}

void ActivationPeer::take(const QByteArray &bytes)
{
    const bool wasRequest = m_received.startsWith(requestCommand);
    const qsizetype before = m_received.size();
    m_received += bytes;
    const bool isRequest = m_received.startsWith(requestCommand);
    if (isRequest && !wasRequest)
        m_timeout.start(requestTimeout);
    const auto lineEnd = m_received.indexOf('\n', before);
    if (lineEnd >= 0)
        answer(m_received.first(lineEnd));
    else if (m_received.size() > (isRequest ? maxRequestLength : maxLineLength))
        end();
}

void ActivationPeer::answer(const QByteArray &line)
{
    const bool isRequest = line.startsWith(requestCommand);
    if (isRequest && hasLeft())
        return end();
    if (isRequest) {
        m_notifier.setEnabled(false);
        m_timeout.stop();
        m_received.clear();
        m_isWaiting = true;
        Q_EMIT asked(line.sliced(requestCommand.size()));
        return;
    }
    end();
    const auto request = requestIn(line);
    if (!request)
        return;
    ::send(m_socket.number(), "ok\n", 3, MSG_NOSIGNAL);
    Q_EMIT requested(request->request, request->token);
}

/// Whether the peer has closed the connection, as one does that has lost its patience.
bool ActivationPeer::hasLeft() const
{
    pollfd peer = {.fd = m_socket.number(), .events = 0, .revents = 0};
    return ::poll(&peer, 1, 0) > 0 && (peer.revents & POLLHUP) != 0;
}

void ActivationPeer::reply(const QByteArray &answer)
{
    if (!m_isWaiting)
        return;
    m_isWaiting = false;
    m_unsent = answer + '\n';
    m_timeout.start(requestTimeout);
    write();
}

void ActivationPeer::write()
{
    const auto size = static_cast<std::size_t>(m_unsent.size());
    const auto count = uninterrupted(
        [&] { return ::send(m_socket.number(), m_unsent.constData(), size, MSG_NOSIGNAL); });
    if (count < 0 && errno != EAGAIN)
        return end();
    m_unsent.remove(0, std::max<qsizetype>(count, 0));
    if (m_unsent.isEmpty())
        return end();
    m_writable.setEnabled(true);
}

void ActivationPeer::end()
{
    m_notifier.setEnabled(false);
    m_writable.setEnabled(false);
    deleteLater();
}

} // namespace ostrel
