#pragma once

#include "MonitorCheck.h"
#include "TcpConnector.h"

#include <QObject>

#include <functional>

namespace ostrel {

/// Opens a TCP connection to a monitor's host and port, and says whether that worked.
class PortCheck : public QObject, public MonitorCheck
{
    Q_OBJECT

public:
    /// How a connection is opened: TcpConnector::connect.
    using TcpConnect = std::function<QFuture<TcpResult>(const QString &host, quint16 port,
                                                        std::chrono::milliseconds timeout)>;

    explicit PortCheck(TcpConnect tcpConnect, WallClock now = systemNow, QObject *parent = nullptr);
    /// @p connector outlives the check.
    explicit PortCheck(TcpConnector &connector);

    [[nodiscard]] QFuture<Check> run(const Monitor &monitor) override;

private:
    TcpConnect m_tcpConnect;
    WallClock m_now;
};

} // namespace ostrel
