#pragma once

#include "AddressScope.h"
#include "TrustStore.h"

#include <functional>
#include <memory>

namespace ostrel {

/// Says of a socket's address whether it is a public one.
using AddressJudge = std::function<bool(const sockaddr &)>;

struct IoThreadConfiguration
{
    /// A transfer that waits for a time-out holds its place. This leaves room for the healthy
    /// addresses beside a hundred that swallow every packet, and keeps within the usual limit of
    /// 1024 open files.
    int maxConcurrentTransfers = 128;
    /// Look-ups take a thread and two open files each, for as long as the resolver likes. Well
    /// below the other bound, so that a dead name server leaves room for addresses that need none.
    int maxConcurrentLookUps = 64;
    TrustStore trustStore = TrustStore::system();
    AddressJudge isPublicAddress = &ostrel::isPublicAddress;
};

/// The one thread on which all of the network's work is done, and measured.
///
/// A bounded number of transfers runs at once; the others wait in order, and the clock of each
/// starts when it is admitted. One whose name can't be looked up yet, because other look-ups hang,
/// is passed by those that need none.
class IoThread
{
public:
    explicit IoThread(IoThreadConfiguration configuration = {});
    /// Ends every transfer, whose future is cancelled, and then the thread.
    ~IoThread();
    IoThread(const IoThread &) = delete;
    IoThread &operator=(const IoThread &) = delete;

    /// As Network::dropConnections says. Any thread.
    void dropConnections();

    class Worker;
    /// For the clients of this folder.
    [[nodiscard]] Worker &worker() const { return *m_worker; }

private:
    std::unique_ptr<Worker> m_worker;
};

} // namespace ostrel
