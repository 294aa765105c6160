#pragma once

#include "FileDescriptor.h"
#include "SingleInstance.h"

#include <QDeadlineTimer>
#include <QSocketNotifier>

#include <memory>

namespace ostrel {

/// A lock on `ostrel.lock` in the data folder, which the kernel releases however the process ends,
/// and the socket `ostrel.sock` beside it, through which a second start talks to the first: one
/// line "activate TOKEN", answered by the line "ok".
///
/// Only programs of the same user are served, a few at a time, each for a bounded time and a
/// bounded number of bytes.
class FreedesktopSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    explicit FreedesktopSingleInstance(const QString &storageDir, QObject *parent = nullptr);
    ~FreedesktopSingleInstance() override;

    [[nodiscard]] Claim claim(std::chrono::milliseconds patience) override;

private:
    [[nodiscard]] bool takeLock();
    Claim becomeFirst();
    Claim handOver(const QDeadlineTimer &deadline);
    void acceptPeers();

    QByteArray m_storageDir;
    FileDescriptor m_folder;
    FileDescriptor m_lock;
    FileDescriptor m_listener; ///< Open in the first program alone.
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace ostrel
