#pragma once

#include "MonitorCheck.h"
#include "Network.h"

#include <QObject>

#include <functional>

namespace ostrel {

/// Opens a TCP connection to a monitor's host and port, and says whether that worked.
class PortCheck : public QObject, public MonitorCheck
{
    Q_OBJECT

public:
    /// How a connection is opened: Network::connect.
    using TcpConnect = std::function<QFuture<TcpResult>(const QString &host, quint16 port,
                                                        std::chrono::milliseconds timeout)>;

    explicit PortCheck(TcpConnect tcpConnect, WallClock now = systemNow, QObject *parent = nullptr);
    /// @p network outlives the check.
    explicit PortCheck(Network &network);

    [[nodiscard]] QFuture<Check> run(const Monitor &monitor) override;

private:
    TcpConnect m_tcpConnect;
    WallClock m_now;
};

} // namespace ostrel
