#pragma once

#include "MonitorCheck.h"

#include <QObject>

namespace ostrel {

class TcpConnector;

/// Opens a TCP connection to a monitor's host and port, and says whether that worked.
class PortCheck : public QObject, public MonitorCheck
{
    Q_OBJECT

public:
    /// @p connector outlives the check.
    explicit PortCheck(TcpConnector &connector, WallClock now = systemNow,
                       QObject *parent = nullptr);

    [[nodiscard]] QFuture<Check> run(const Monitor &monitor) override;

private:
    TcpConnector &m_connector;
    WallClock m_now;
};

} // namespace ostrel
