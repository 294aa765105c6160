#pragma once

#include "SingleInstance.h"

#include <QFileSystemWatcher>
#include <QLockFile>

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

    [[nodiscard]] Claim claim(std::chrono::milliseconds patience) override;

private:
    Claim becomeFirst();
    Claim handOver(std::chrono::milliseconds patience);
    void takeRequests();

    QString m_mailbox;
    QLockFile m_lock;
    QFileSystemWatcher m_watcher;
};

} // namespace ostrel
