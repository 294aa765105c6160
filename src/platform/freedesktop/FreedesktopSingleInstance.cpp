#include "FreedesktopSingleInstance.h"

#include "ActivationPeer.h"
#include "ActivationToken.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <poll.h>
#include <string_view>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto lockName = "ostrel.lock";
constexpr auto socketName = "ostrel.sock";
constexpr std::string_view okAnswer = "ok\n";
constexpr mode_t ownerOnly = 0600;
/// How long a second start waits before it tries again.
constexpr auto retryInterval = 20ms;
constexpr int maxPeers = 16;

/// The socket's address by way of the folder's descriptor, because a socket's path must be short
/// and a data folder's may be long.
sockaddr_un addressIn(const FileDescriptor &folder)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray path =
        "/proc/self/fd/" + QByteArray::number(folder.number()) + '/' + socketName;
    std::ranges::copy(path, address.sun_path);
    return address;
}

using SocketCall = int (*)(int, const sockaddr *, socklen_t);

/// Calls bind or connect.
bool attach(SocketCall call, const FileDescriptor &socket, const FileDescriptor &folder)
{
    const sockaddr_un address = addressIn(folder);
    return call(socket.number(), reinterpret_cast<const sockaddr *>(&address), sizeof(address)) ==
           0;
}

FileDescriptor newSocket()
{
    return FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

/// A socket that listens in @p folder; a closed descriptor where the file system can't have one.
FileDescriptor listenIn(const FileDescriptor &folder)
{
    // Left by a program that was killed: whoever holds the lock owns this name.
    ::unlinkat(folder.number(), socketName, 0);
    FileDescriptor socket = newSocket();
    const bool isListening = socket.isOpen() && ::fchmod(socket.number(), ownerOnly) == 0 &&
                             attach(::bind, socket, folder) &&
                             ::listen(socket.number(), maxPeers) == 0;
    return isListening ? std::move(socket) : FileDescriptor();
}

/// Waits until @p socket has something to read, or @p deadline.
bool waitForAnswer(const FileDescriptor &socket, const QDeadlineTimer &deadline)
{
    pollfd waited = {.fd = socket.number(), .events = POLLIN, .revents = 0};
    return ::poll(&waited, 1, static_cast<int>(deadline.remainingTime())) > 0;
}

/// Asks the first program once; true where it has said that it will show itself.
bool askFirst(const FileDescriptor &folder, const QDeadlineTimer &deadline)
{
    const FileDescriptor socket = newSocket();
    if (!socket.isOpen() || !attach(::connect, socket, folder))
        return false;
    const QByteArray request = "activate " + activationTokenFromEnvironment() + '\n';
    const auto size = static_cast<std::size_t>(request.size());
    if (::send(socket.number(), request.constData(), size, MSG_NOSIGNAL) != request.size())
        return false;
    if (!waitForAnswer(socket, deadline))
        return false;
    std::array<char, okAnswer.size()> answer = {};
    const auto count = ::recv(socket.number(), answer.data(), answer.size(), 0);
    return count > 0 &&
           std::string_view(answer.data(), static_cast<std::size_t>(count)) == okAnswer;
}

void pause(const QDeadlineTimer &deadline)
{
    const auto pause =
        std::min<std::chrono::nanoseconds>(retryInterval, deadline.remainingTimeAsDuration());
    std::this_thread::sleep_for(pause);
}

} // namespace

FreedesktopSingleInstance::FreedesktopSingleInstance(const QString &storageDir, QObject *parent)
    : SingleInstance(parent)
    , m_storageDir(QFile::encodeName(storageDir))
{
}

FreedesktopSingleInstance::~FreedesktopSingleInstance()
{
    // While the lock is still held, so that the successor's socket can't be meant.
    if (m_listener.isOpen())
        ::unlinkat(m_folder.number(), socketName, 0);
}

SingleInstance::Claim FreedesktopSingleInstance::claim(std::chrono::milliseconds patience)
{
    const QDeadlineTimer deadline(patience);
    m_folder = FileDescriptor(::open(m_storageDir.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    m_lock = FileDescriptor(::openat(m_folder.number(), lockName,
                                     O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, ownerOnly));
    if (!m_lock.isOpen())
        return Claim::failed;
    if (takeLock())
        return becomeFirst();
    return errno == EWOULDBLOCK ? handOver(deadline) : Claim::failed;
}

bool FreedesktopSingleInstance::takeLock()
{
    return ::flock(m_lock.number(), LOCK_EX | LOCK_NB) == 0;
}

SingleInstance::Claim FreedesktopSingleInstance::becomeFirst()
{
    m_listener = listenIn(m_folder);
    if (!m_listener.isOpen())
        return Claim::first;
    m_notifier = std::make_unique<QSocketNotifier>(m_listener.number(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this,
            &FreedesktopSingleInstance::acceptPeers);
    return Claim::first;
}

/// The first program may have the lock but not its socket yet, and it may end at any moment.
SingleInstance::Claim FreedesktopSingleInstance::handOver(const QDeadlineTimer &deadline)
{
    do {
        if (askFirst(m_folder, deadline))
            return Claim::handedOver;
        pause(deadline);
        if (takeLock())
            return becomeFirst();
    } while (!deadline.hasExpired());
    return Claim::failed;
}

void FreedesktopSingleInstance::acceptPeers()
{
    FileDescriptor socket(
        ::accept4(m_listener.number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    const auto peers = findChildren<ActivationPeer *>(QString(), Qt::FindDirectChildrenOnly);
    if (!socket.isOpen() || peers.size() >= maxPeers || !ActivationPeer::isOurs(socket))
        return;
    auto *peer = new ActivationPeer(std::move(socket), this);
    connect(peer, &ActivationPeer::activationRequested, this,
            &FreedesktopSingleInstance::activationRequested);
}

} // namespace ostrel
