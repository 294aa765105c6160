#pragma once

#include "MonitorCheck.h"

#include <QObject>

namespace ostrel {

class Network;

/// Opens a TCP connection to a monitor's host and port, and says whether that worked.
class PortCheck : public QObject, public MonitorCheck
{
    Q_OBJECT

public:
    /// @p network outlives the check.
    explicit PortCheck(Network &network, WallClock now = systemNow);

    [[nodiscard]] QFuture<Check> run(const Monitor &monitor) override;

private:
    Network &m_network;
    WallClock m_now;
};

} // namespace ostrel
