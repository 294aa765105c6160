#pragma once

#include "FileDescriptor.h"
#include "FolderOwnership.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>

namespace ostrel {

/// Sees to it that one program at a time owns a data folder, and hands a second start over to the
/// first. Main thread.
///
/// What is owned is the folder that stands at the path: where it was deleted, renamed or replaced,
/// renew() makes it again if there is none, and owns what is there.
///
/// It is a lock on `ostrel.lock` in the data folder, which the kernel releases however the process
/// ends, and the socket `ostrel.sock` beside it, through which a second start talks to the first:
/// one line "activate TOKEN", answered by the line "ok". Only programs of the same user are served,
/// a few at a time, each for a bounded time and a bounded number of bytes. Who has said nothing
/// makes way for who comes later. Beside POSIX it takes Linux's accept4, SO_PEERCRED and
/// /proc/self/fd.
class SingleInstance final : public QObject, public FolderOwnership
{
    Q_OBJECT

public:
    enum class Claim {
        first,      ///< The folder is ours until this object or the process ends, however it ends.
        handedOver, ///< Another program has it, and has been asked to show itself.
        failed,     ///< Another program has it but doesn't answer.
        unusable,   ///< Nobody can have it (read-only, foreign, no folder). renew() may yet.
    };

    explicit SingleInstance(const QString &storageDir, QObject *parent = nullptr);
    ~SingleInstance() override;

    /// Asks once, at start. Waits for the first program's answer for at most @p patience. The
    /// desktop's activation token, where the environment holds one, goes along.
    [[nodiscard]] Claim claim(std::chrono::milliseconds patience);
    [[nodiscard]] bool renew() override;

Q_SIGNALS:
    /// To the first: another start has handed over to us. @p activationToken may be empty.
    void activationRequested(const QByteArray &activationToken);
    /// Once, from the event loop: another program has the folder that stands at the path now, and
    /// has been asked to show itself. renew() is false from then on.
    void ownershipLost();

private:
    /// Of a try to lock the folder that stands at the path.
    enum class Lock { taken, held, impossible };

    [[nodiscard]] bool isOwner() const;
    [[nodiscard]] Lock takeLock();
    void listen();
    Claim handOver(const QDeadlineTimer &deadline);
    void lose();
    void acceptPeers();
    bool acceptPeer();

    QByteArray m_storageDir;
    FileDescriptor m_folder;
    FileDescriptor m_lock; ///< Open in the first program alone, as are the ones that follow.
    FileDescriptor m_listener;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_nextAccept; ///< Runs while no more can be accepted.
    bool m_isLost = false;
};

} // namespace ostrel
