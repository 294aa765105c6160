#pragma once

#include "MonitorCheck.h"

#include <QObject>

namespace ostrel {

class Network;

/// Checks whether a TCP connection to a monitor's host and port can be opened.
class PortCheck : public QObject, public MonitorCheck
{
    Q_OBJECT

public:
    /// @p network must outlive the check.
    explicit PortCheck(Network &network, WallClock now = systemNow);

    [[nodiscard]] QFuture<Check> run(const Monitor &monitor) override;

private:
    Network &m_network;
    WallClock m_now;
};

} // namespace ostrel
