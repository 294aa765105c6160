#include "ActivationPeer.h"

#include "ActivationToken.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto timeout = 2s;
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
{
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

bool ActivationPeer::isOurs(const FileDescriptor &socket)
{
    ucred peer = {};
    socklen_t size = sizeof(peer);
    return ::getsockopt(socket.number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::getuid();
}

void ActivationPeer::read()
{
    std::array<char, 512> bytes;
    const auto count = ::recv(m_socket.number(), bytes.data(), bytes.size(), 0);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (count <= 0)
        return end();
    m_received.append(bytes.data(), count);
    const auto lineEnd = m_received.indexOf('\n');
    if (lineEnd >= 0)
        answer(m_received.first(lineEnd));
    else if (m_received.size() > maxLineLength)
        end();
}

void ActivationPeer::answer(const QByteArray &line)
{
    end();
    const auto request = requestIn(line);
    if (!request)
        return;
    ::send(m_socket.number(), "ok\n", 3, MSG_NOSIGNAL);
    Q_EMIT requested(request->request, request->token);
}

void ActivationPeer::end()
{
    m_notifier.setEnabled(false);
    deleteLater();
}

} // namespace ostrel
