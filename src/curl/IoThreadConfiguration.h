#pragma once

#include "AddressScope.h"
#include "TrustStore.h"

#include <functional>

namespace ostrel {

/// Whether a socket's address is a public one.
using AddressJudge = std::function<bool(const sockaddr &)>;

struct IoThreadConfiguration
{
    /// A transfer that waits for its time-out keeps its slot. This bound leaves room for the
    /// healthy addresses beside a hundred that swallow every packet, and stays within the usual
    /// limit of 1024 open files.
    int maxConcurrentTransfers = 128;
    /// Each look-up takes a thread and two open files, for as long as the resolver takes. Well
    /// below the other bound, so that a dead name server leaves room for addresses that need none.
    int maxConcurrentLookUps = 64;
    TrustStore trustStore = TrustStore::system();
    AddressJudge isPublicAddress = &ostrel::isPublicAddress;
};

} // namespace ostrel
