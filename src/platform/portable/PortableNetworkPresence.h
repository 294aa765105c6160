#pragma once

#include "NetworkPresence.h"

namespace ostrel {

/// Qt Core alone doesn't tell of networks: there always is one.
class PortableNetworkPresence final : public NetworkPresence
{
    Q_OBJECT

public:
    using NetworkPresence::NetworkPresence;
};

} // namespace ostrel
