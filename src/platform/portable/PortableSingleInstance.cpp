#include "PortableSingleInstance.h"

#include "ActivationToken.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include <optional>
#include <thread>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// How often a second start looks whether its request has been taken.
constexpr auto lookInterval = 10ms;

/// The requests that wait in @p mailbox, oldest first.
QStringList requestsIn(const QString &mailbox)
{
    return QDir(mailbox).entryList({QStringLiteral("*.request")}, QDir::Files,
                                   QDir::Time | QDir::Reversed);
}

/// Puts a request into @p mailbox, whole or not at all, and returns its path.
std::optional<QString> writeRequest(const QString &mailbox)
{
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    // Until it is whole it has another suffix, so that the first program doesn't take it.
    QSaveFile file(mailbox + u'/' + name + QStringLiteral(".request"));
    if (!file.open(QIODevice::WriteOnly))
        return std::nullopt;
    file.write(activationTokenFromEnvironment());
    return file.commit() ? std::optional(file.fileName()) : std::nullopt;
}

/// Reads and removes the request at @p path.
QByteArray takeRequest(const QString &path)
{
    QFile file(path);
    QByteArray token =
        file.open(QIODevice::ReadOnly) ? file.read(maxActivationTokenLength) : QByteArray();
    file.remove();
    return token;
}

} // namespace

PortableSingleInstance::PortableSingleInstance(const QString &storageDir, QObject *parent)
    : SingleInstance(parent)
    , m_mailbox(storageDir + QStringLiteral("/.ostrel-instance"))
{
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
            &PortableSingleInstance::takeRequests);
}

PortableSingleInstance::~PortableSingleInstance()
{
    forgetOthersLock();
}

SingleInstance::Claim PortableSingleInstance::claim(std::chrono::milliseconds patience)
{
    switch (takeLock()) {
    case Lock::taken:
        return Claim::first;
    case Lock::held:
        return handOver(patience);
    case Lock::impossible:
        return Claim::unusable;
    }
    Q_UNREACHABLE();
}

bool PortableSingleInstance::renew()
{
    if (m_isLost || isOwner())
        return !m_isLost;
    const Lock lock = takeLock();
    if (lock == Lock::held) {
        m_isLost = true;
        (void)writeRequest(m_mailbox);
        QMetaObject::invokeMethod(this, &SingleInstance::ownershipLost, Qt::QueuedConnection);
    }
    return lock == Lock::taken;
}

/// Whether the lock that stands at the path is ours.
bool PortableSingleInstance::isOwner() const
{
    qint64 process = 0;
    QString host;
    QString program;
    return m_lock && isLockReadable() && m_lock->getLockInfo(&process, &host, &program) &&
           process == QCoreApplication::applicationPid();
}

/// Whether no pipe or device stands in the lock's place, which Qt would wait for.
bool PortableSingleInstance::isLockReadable() const
{
    const QFileInfo lock(lockPath());
    return lock.isFile() || (!lock.exists() && !lock.isSymLink());
}

QString PortableSingleInstance::lockPath() const
{
    return m_mailbox + QStringLiteral("/lock");
}

/// A lock's end removes the file at its path, which must not be another program's.
void PortableSingleInstance::forgetOthersLock()
{
    if (m_lock && QFileInfo::exists(lockPath()) && !isOwner())
        static_cast<void>(m_lock.release());
}

PortableSingleInstance::Lock PortableSingleInstance::takeLock()
{
    forgetOthersLock();
    m_lock.reset();
    if (!QDir().mkpath(m_mailbox) || !isLockReadable())
        return Lock::impossible;
    constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QFile::setPermissions(m_mailbox, ownerOnly);
    auto lock = std::make_unique<QLockFile>(lockPath());
    // However old, a lock is good for as long as its program runs.
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0))
        return lock->error() == QLockFile::LockFailedError ? Lock::held : Lock::impossible;
    m_lock = std::move(lock);
    serve();
    return Lock::taken;
}

void PortableSingleInstance::serve()
{
    m_watcher.removePath(m_mailbox);
    m_watcher.addPath(m_mailbox);
    // What was asked of a program that has ended, or of this one before it could listen, is
    // granted by this start.
    for (const QString &request : requestsIn(m_mailbox))
        takeRequest(m_mailbox + u'/' + request);
}

SingleInstance::Claim PortableSingleInstance::handOver(std::chrono::milliseconds patience)
{
    const QDeadlineTimer deadline(patience);
    const auto request = writeRequest(m_mailbox);
    if (!request)
        return Claim::failed;
    while (QFile::exists(*request) && !deadline.hasExpired()) {
        // The first program may end instead of answering.
        if (takeLock() == Lock::taken)
            return Claim::first;
        std::this_thread::sleep_for(lookInterval);
    }
    return QFile::remove(*request) ? Claim::failed : Claim::handedOver;
}

void PortableSingleInstance::takeRequests()
{
    for (const QString &request : requestsIn(m_mailbox))
        Q_EMIT activationRequested(takeRequest(m_mailbox + u'/' + request));
}

} // namespace ostrel
