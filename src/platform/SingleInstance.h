#pragma once

#include "FileDescriptor.h"
#include "FolderOwnership.h"
#include "RequestChannel.h"
#include "StartRequest.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace ostrel {

class ActivationPeer;

/// Ensures that one program at a time owns a data folder, and hands a second start over to the
/// first. Main thread.
///
/// Ownership applies to the folder that is now at the path: if that was deleted, renamed or
/// replaced, renew() creates it again if there is none, and takes ownership of what is there.
///
/// Ownership is a lock on `ostrel.lock` in the data folder, which the kernel releases however the
/// process ends. Through the socket `ostrel.sock` beside it, a second start talks to the first: one
/// line "activate TOKEN", "add-monitor TOKEN" or "end TOKEN", answered by the line "ok". A command
/// sends one line "request REQUEST", answered by one line, whose forms others define. Only
/// programs of the same user are served, a few at a time, each for a bounded time and a bounded
/// number of bytes. Peers that have sent nothing make way for later ones. Besides POSIX, it needs
/// Linux's accept4, SO_PEERCRED and /proc/self/fd.
class SingleInstance final : public QObject, public FolderOwnership, public RequestChannel
{
    Q_OBJECT

public:
    enum class Claim {
        first,      ///< The folder is ours until this object or the process ends, however it ends.
        handedOver, ///< Another program owns it, and has taken the request.
        failed,     ///< Another program owns it but doesn't answer.
        unusable,   ///< It can't be owned (read-only, foreign, no folder). renew() still may.
    };

    explicit SingleInstance(const QString &storageDir, QObject *parent = nullptr);
    ~SingleInstance() override;

    /// Called once, at startup. Waits at most @p patience for the first program's answer to
    /// @p request. Passes the desktop's activation token on, if the environment has one.
    [[nodiscard]] Claim claim(std::chrono::milliseconds patience,
                              StartRequest request = StartRequest::show);
    [[nodiscard]] bool renew() override;

    // For a command, instead of claim(). It doesn't answer the starts that wait meanwhile; they
    // notice when it releases the folder, or ends.
    [[nodiscard]] Answer ask(const QByteArray &request,
                             std::chrono::milliseconds patience) override;
    void release() override;

    /// Takes the answer to a request, one line, at most once.
    using Reply = std::function<void(const QByteArray &answer)>;

Q_SIGNALS:
    /// Emitted in the first program: another start has handed over to us. @p activationToken may be
    /// empty.
    void activationRequested(const QByteArray &activationToken);
    /// Likewise, with the form for a new monitor.
    void newMonitorRequested(const QByteArray &activationToken);
    /// Emitted in the first program: another start has asked it to end.
    void quitRequested();
    /// Emitted in the first program: a command waits until @p reply is called with its answer.
    void requested(const QByteArray &request, const ostrel::SingleInstance::Reply &reply);
    /// Emitted once, from the event loop: another program owns the folder that is now at the path,
    /// and has been asked to show itself. renew() returns false from then on.
    void ownershipLost();

private:
    /// The result of an attempt to lock the folder at the path.
    enum class Lock { taken, held, impossible };

    [[nodiscard]] bool isOwner() const;
    [[nodiscard]] Lock takeLock();
    void listen();
    Claim claimOr(const QByteArray &line, std::chrono::milliseconds patience, QByteArray &answer);
    Claim handOver(const QByteArray &line, const QDeadlineTimer &deadline, QByteArray &answer);
    void lose();
    void acceptPeers();
    bool acceptPeer();
    void pass(StartRequest request, const QByteArray &activationToken);
    void passRequest(ActivationPeer *peer, const QByteArray &request);
    void dropSilentPeers();

    QByteArray m_storageDir;
    FileDescriptor m_folder;
    FileDescriptor m_lock; ///< Like the following ones, only open in the first program.
    FileDescriptor m_listener;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_nextAccept; ///< Runs while no more can be accepted.
    bool m_isLost = false;
};

} // namespace ostrel
