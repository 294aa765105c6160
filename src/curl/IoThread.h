#pragma once

#include "TrustStore.h"

#include <memory>

namespace ostrel {

struct IoThreadConfiguration
{
    /// A transfer that waits for a time-out holds its place. This leaves room for the healthy
    /// addresses beside a hundred that swallow every packet, and keeps within the usual limit of
    /// 1024 open files: a look-up takes a thread and four of them.
    int maxConcurrentTransfers = 128;
    TrustStore trustStore = TrustStore::system();
};

/// The one thread on which all of the network's work is done, and measured.
///
/// A bounded number of transfers runs at once; the others wait in order, and the clock of each
/// starts when it is admitted.
class IoThread
{
public:
    explicit IoThread(IoThreadConfiguration configuration = {});
    /// Ends every transfer, whose future is cancelled, and then the thread.
    ~IoThread();
    IoThread(const IoThread &) = delete;
    IoThread &operator=(const IoThread &) = delete;

    /// As Network::renewConnections says. Any thread.
    void renewConnections();

    class Worker;
    /// For the clients of this folder.
    [[nodiscard]] Worker &worker() const { return *m_worker; }

private:
    std::unique_ptr<Worker> m_worker;
};

} // namespace ostrel
