#pragma once

#include "NetworkPresence.h"

namespace ostrel {

/// Qt Core alone doesn't report networks: a network is always assumed.
class PortableNetworkPresence final : public NetworkPresence
{
    Q_OBJECT

public:
    using NetworkPresence::NetworkPresence;
};

} // namespace ostrel
