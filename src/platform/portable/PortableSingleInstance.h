#pragma once

#include "SingleInstance.h"

#include <QFileSystemWatcher>
#include <QLockFile>

#include <memory>

namespace ostrel {

/// A lock file and a mailbox of files, both in `.ostrel-instance` below the data folder.
///
/// A second start puts a request, which holds its activation token, into the mailbox, and waits
/// until the first has taken it out.
class PortableSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    explicit PortableSingleInstance(const QString &storageDir, QObject *parent = nullptr);

    ~PortableSingleInstance() override;

    [[nodiscard]] Claim claim(std::chrono::milliseconds patience) override;
    [[nodiscard]] bool renew() override;

private:
    /// Of a try to lock the folder that stands at the path.
    enum class Lock { taken, held, impossible };

    [[nodiscard]] bool isOwner() const;
    [[nodiscard]] Lock takeLock();
    void serve();
    [[nodiscard]] QString lockPath() const;
    [[nodiscard]] bool isLockReadable() const;
    void forgetOthersLock();
    Claim handOver(std::chrono::milliseconds patience);
    void takeRequests();

    QString m_mailbox;
    std::unique_ptr<QLockFile> m_lock; ///< Null while another program's is there, or none can be.
    QFileSystemWatcher m_watcher;
    bool m_isLost = false;
};

} // namespace ostrel
