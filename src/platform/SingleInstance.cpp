#include "SingleInstance.h"

#include "ActivationPeer.h"
#include "ActivationToken.h"
#include "StorageFolder.h"

#include <QFile>
#include <QPointer>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <optional>
#include <poll.h>
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
constexpr QByteArrayView okAnswer = "ok";
constexpr mode_t ownerOnly = 0600;
/// How long a second start waits before it retries.
constexpr auto retryInterval = 20ms;
constexpr int maxPeers = 16;
/// Commands that wait for an answer, which may take as long as a check.
constexpr int maxWaitingPeers = 64;
constexpr qsizetype maxAnswerLength = qsizetype(64) * 1024 * 1024;
constexpr std::size_t pieceLength = 16384;
/// How long accepting pauses after it has failed, for example because there are no descriptors
/// left.
constexpr auto acceptPause = 200ms;

/// The socket's address through the folder's descriptor, because a socket's path must be short and
/// a data folder's may be long.
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

/// A socket that listens in @p folder; a closed descriptor if the file system doesn't support that.
FileDescriptor listenIn(const FileDescriptor &folder)
{
    // Left by a program that was killed: the lock's holder owns this name.
    ::unlinkat(folder.number(), socketName, 0);
    FileDescriptor socket = newSocket();
    const bool isListening = socket.isOpen() && ::fchmod(socket.number(), ownerOnly) == 0 &&
                             attach(::bind, socket, folder) &&
                             ::listen(socket.number(), SOMAXCONN) == 0;
    return isListening ? std::move(socket) : FileDescriptor();
}

/// Waits until @p socket is ready for @p events, or until @p deadline.
bool waitUntil(short events, const FileDescriptor &socket, const QDeadlineTimer &deadline)
{
    pollfd waited = {.fd = socket.number(), .events = events, .revents = 0};
    return ::poll(&waited, 1, static_cast<int>(deadline.remainingTime())) > 0;
}

/// Sends @p line to the program that owns @p folder; a closed descriptor if that fails, or takes
/// longer than until @p deadline.
FileDescriptor send(const QByteArray &line, const FileDescriptor &folder,
                    const QDeadlineTimer &deadline)
{
    FileDescriptor socket = newSocket();
    if (!socket.isOpen() || !attach(::connect, socket, folder))
        return FileDescriptor();
    for (QByteArrayView unsent = line; !unsent.isEmpty();) {
        const auto size = static_cast<std::size_t>(unsent.size());
        const auto sent = ::send(socket.number(), unsent.data(), size, MSG_NOSIGNAL);
        const bool mustWait = sent < 0 && (errno == EAGAIN || errno == EINTR);
        if (sent < 0 && !(mustWait && waitUntil(POLLOUT, socket, deadline)))
            return FileDescriptor();
        unsent = unsent.sliced(std::max<qsizetype>(sent, 0));
    }
    return socket;
}

/// The line that arrives on @p socket, without its end; nullopt if none does.
std::optional<QByteArray> receiveLine(const FileDescriptor &socket, const QDeadlineTimer &deadline)
{
    QByteArray received;
    std::array<char, pieceLength> bytes;
    while (received.size() < maxAnswerLength && waitUntil(POLLIN, socket, deadline)) {
        const auto count = ::recv(socket.number(), bytes.data(), bytes.size(), 0);
        if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR))
            return std::nullopt;
        received.append(bytes.data(), std::max<qsizetype>(count, 0));
        if (received.endsWith('\n'))
            return received.chopped(1);
    }
    return std::nullopt;
}

/// The line by which a start makes @p request.
QByteArray startLine(StartRequest request)
{
    return ActivationPeer::command(request) + activationTokenFromEnvironment() + '\n';
}

void pause(const QDeadlineTimer &deadline)
{
    const auto pause =
        std::min<std::chrono::nanoseconds>(retryInterval, deadline.remainingTimeAsDuration());
    std::this_thread::sleep_for(pause);
}

/// Opens the lock file in @p folder, which is created if possible. Doesn't block if something else
/// is there in its place.
FileDescriptor openLock(const FileDescriptor &folder)
{
    constexpr int flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    FileDescriptor lock(::openat(folder.number(), lockName, O_RDWR | O_CREAT | flags, ownerOnly));
    // The lock file in a read-only folder can be locked as well.
    if (!lock.isOpen())
        lock = FileDescriptor(::openat(folder.number(), lockName, O_RDONLY | flags));
    struct stat status = {};
    const bool isFile = ::fstat(lock.number(), &status) == 0 && S_ISREG(status.st_mode);
    return isFile ? std::move(lock) : FileDescriptor();
}

bool isSameFile(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

SingleInstance::SingleInstance(const QString &storageDir, QObject *parent)
    : QObject(parent)
    , m_storageDir(QFile::encodeName(storageDir))
{
    m_nextAccept.setSingleShot(true);
    m_nextAccept.setInterval(acceptPause);
    connect(&m_nextAccept, &QTimer::timeout, this, [this] {
        if (m_notifier)
            m_notifier->setEnabled(true);
    });
}

SingleInstance::~SingleInstance()
{
    release();
}

SingleInstance::Claim SingleInstance::claim(std::chrono::milliseconds patience,
                                            StartRequest request)
{
    QByteArray answer;
    const Claim claim = claimOr(startLine(request), patience, answer);
    return claim == Claim::handedOver && answer != okAnswer ? Claim::failed : claim;
}

RequestChannel::Answer SingleInstance::ask(const QByteArray &request,
                                           std::chrono::milliseconds patience)
{
    QByteArray answer;
    switch (claimOr(ActivationPeer::requestLine(request), patience, answer)) {
    case Claim::first:
        return {.result = Result::ours};
    case Claim::handedOver:
        return {.result = Result::answered, .line = answer};
    case Claim::failed:
        return {.result = Result::silent};
    case Claim::unusable:
        return {.result = Result::unusable};
    }
    Q_UNREACHABLE();
}

void SingleInstance::release()
{
    m_notifier.reset();
    // While the lock is still held, so that this can't remove a successor's socket.
    if (m_listener.isOpen())
        ::unlinkat(m_folder.number(), socketName, 0);
    m_listener.close();
    m_lock.close();
}

/// Sends @p line if another program owns the folder.
SingleInstance::Claim SingleInstance::claimOr(const QByteArray &line,
                                              std::chrono::milliseconds patience,
                                              QByteArray &answer)
{
    const QDeadlineTimer deadline(patience);
    switch (takeLock()) {
    case Lock::taken:
        return Claim::first;
    case Lock::held:
        return handOver(line, deadline, answer);
    case Lock::impossible:
        return Claim::unusable;
    }
    Q_UNREACHABLE();
}

bool SingleInstance::renew()
{
    if (m_isLost || isOwner())
        return !m_isLost;
    createPrivateFolder(QFile::decodeName(m_storageDir));
    const Lock lock = takeLock();
    if (lock == Lock::held)
        lose();
    return lock == Lock::taken;
}

/// Whether the lock file at the path is the one that we hold.
bool SingleInstance::isOwner() const
{
    struct stat own = {};
    struct stat found = {};
    const QByteArray path = m_storageDir + '/' + lockName;
    return ::fstat(m_lock.number(), &own) == 0 && ::lstat(path.constData(), &found) == 0 &&
           isSameFile(own, found);
}

/// The previous lock is held until there is a new one.
SingleInstance::Lock SingleInstance::takeLock()
{
    FileDescriptor folder(
        ::open(m_storageDir.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
    FileDescriptor lock = openLock(folder);
    if (!lock.isOpen())
        return Lock::impossible;
    if (::flock(lock.number(), LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? Lock::held : Lock::impossible;
    std::swap(m_folder, folder);
    std::swap(m_lock, lock);
    // A lock file that was replaced since it was opened keeps no one out.
    if (!isOwner())
        return Lock::impossible;
    listen();
    return Lock::taken;
}

void SingleInstance::listen()
{
    m_notifier.reset();
    m_listener = listenIn(m_folder);
    if (!m_listener.isOpen())
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_listener.number(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &SingleInstance::acceptPeers);
}

/// The first program may have the lock but not its socket yet, and it may end at any moment.
SingleInstance::Claim SingleInstance::handOver(const QByteArray &line,
                                               const QDeadlineTimer &deadline, QByteArray &answer)
{
    const FileDescriptor folder(
        ::open(m_storageDir.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    do {
        const FileDescriptor socket = send(line, folder, deadline);
        const auto received = socket.isOpen() ? receiveLine(socket, deadline) : std::nullopt;
        answer = received.value_or(QByteArray());
        if (received)
            return Claim::handedOver;
        pause(deadline);
        if (takeLock() == Lock::taken)
            return Claim::first;
    } while (!deadline.hasExpired());
    return Claim::failed;
}

void SingleInstance::lose()
{
    m_isLost = true;
    const FileDescriptor folder(
        ::open(m_storageDir.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    (void)send(startLine(StartRequest::show), folder, QDeadlineTimer(0));
    QMetaObject::invokeMethod(this, &SingleInstance::ownershipLost, Qt::QueuedConnection);
}

void SingleInstance::acceptPeers()
{
    for (int i = 0; i < maxPeers; ++i) {
        if (acceptPeer())
            continue;
        if (errno == EAGAIN || errno == EWOULDBLOCK)
            return;
        // The notifier would report the same peer again and again.
        m_notifier->setEnabled(false);
        return m_nextAccept.start();
    }
}

/// False, with errno, if no peer could be accepted.
bool SingleInstance::acceptPeer()
{
    FileDescriptor socket(uninterrupted([this] {
        return ::accept4(m_listener.number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    }));
    if (!socket.isOpen())
        return false;
    if (!ActivationPeer::isOurs(socket))
        return true;
    auto *peer = new ActivationPeer(std::move(socket), this);
    connect(peer, &ActivationPeer::requested, this, &SingleInstance::pass);
    connect(peer, &ActivationPeer::asked, this,
            [this, peer](const QByteArray &request) { passRequest(peer, request); });
    peer->read();
    dropSilentPeers();
    return true;
}

void SingleInstance::dropSilentPeers()
{
    auto peers = findChildren<ActivationPeer *>(QString(), Qt::FindDirectChildrenOnly);
    peers.removeIf([](const ActivationPeer *peer) { return peer->isWaiting(); });
    if (peers.size() > maxPeers)
        delete peers.first();
}

void SingleInstance::passRequest(ActivationPeer *peer, const QByteArray &request)
{
    const auto peers = findChildren<ActivationPeer *>(QString(), Qt::FindDirectChildrenOnly);
    if (std::ranges::count_if(peers, &ActivationPeer::isWaiting) > maxWaitingPeers)
        return peer->reply("refused Too many other commands are waiting.");
    Q_EMIT requested(request, [peer = QPointer(peer)](const QByteArray &answer) {
        if (peer)
            peer->reply(answer);
    });
}

void SingleInstance::pass(StartRequest request, const QByteArray &activationToken)
{
    switch (request) {
    case StartRequest::show:
        Q_EMIT activationRequested(activationToken);
        break;
    case StartRequest::addMonitor:
        Q_EMIT newMonitorRequested(activationToken);
        break;
    case StartRequest::quit:
        Q_EMIT quitRequested();
        break;
    }
}

} // namespace ostrel
