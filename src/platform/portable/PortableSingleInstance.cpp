#include "PortableSingleInstance.h"

#include "ActivationToken.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
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
    , m_lock(m_mailbox + QStringLiteral("/lock"))
{
    // However old, a lock is good for as long as its program runs.
    m_lock.setStaleLockTime(0);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
            &PortableSingleInstance::takeRequests);
}

SingleInstance::Claim PortableSingleInstance::claim(std::chrono::milliseconds patience)
{
    if (!QDir().mkpath(m_mailbox))
        return Claim::failed;
    QFile::setPermissions(m_mailbox, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (m_lock.tryLock(0))
        return becomeFirst();
    return m_lock.error() == QLockFile::LockFailedError ? handOver(patience) : Claim::failed;
}

SingleInstance::Claim PortableSingleInstance::becomeFirst()
{
    m_watcher.addPath(m_mailbox);
    // What was asked of a program that has ended, or of this one before it could listen, is
    // granted by this start.
    for (const QString &request : requestsIn(m_mailbox))
        takeRequest(m_mailbox + u'/' + request);
    return Claim::first;
}

SingleInstance::Claim PortableSingleInstance::handOver(std::chrono::milliseconds patience)
{
    const QDeadlineTimer deadline(patience);
    const auto request = writeRequest(m_mailbox);
    if (!request)
        return Claim::failed;
    while (QFile::exists(*request) && !deadline.hasExpired()) {
        // The first program may end instead of answering.
        if (m_lock.tryLock(0))
            return becomeFirst();
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
