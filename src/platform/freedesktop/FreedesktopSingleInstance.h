#pragma once

#include "FileDescriptor.h"
#include "SingleInstance.h"

#include <QDeadlineTimer>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

namespace ostrel {

/// A lock on `ostrel.lock` in the data folder, which the kernel releases however the process ends,
/// and the socket `ostrel.sock` beside it, through which a second start talks to the first: one
/// line "activate TOKEN", answered by the line "ok".
///
/// Only programs of the same user are served, a few at a time, each for a bounded time and a
/// bounded number of bytes. Who has said nothing makes way for who comes later.
class FreedesktopSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    explicit FreedesktopSingleInstance(const QString &storageDir, QObject *parent = nullptr);
    ~FreedesktopSingleInstance() override;

    [[nodiscard]] Claim claim(std::chrono::milliseconds patience) override;
    [[nodiscard]] bool renew() override;

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
