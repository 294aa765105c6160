#pragma once

#include "AddressScope.h"
#include "TrustStore.h"

#include <functional>

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

} // namespace ostrel
