#include "PortCheck.h"

#include "Address.h"
#include "ContinueOn.h"
#include "Network.h"
#include "TransferTimeout.h"

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

std::optional<quint16> usablePort(const Monitor &monitor)
{
    constexpr qint64 highest = std::numeric_limits<quint16>::max();
    if (!monitor.port || *monitor.port < 1 || *monitor.port > highest)
        return std::nullopt;
    return static_cast<quint16>(*monitor.port);
}

Check invalidPortCheck(const Monitor &monitor, Timestamp timestamp)
{
    Check check = newCheck(monitor, timestamp);
    check.error = u"Invalid host/port"_s;
    return check;
}

Check concludedCheck(const Monitor &monitor, quint16 port, const TcpResult &result,
                     Timestamp timestamp)
{
    Check check = newCheck(monitor, timestamp);
    check.responseTime = Milliseconds(result.elapsed).count();
    check.isUp = result.isConnected;
    if (!check.isUp)
        check.error = u"Port %1 closed or unreachable"_s.arg(port);
    return check;
}

} // namespace

PortCheck::PortCheck(Network &network, WallClock now)
    : m_network(network)
    , m_now(std::move(now))
{
}

QFuture<Check> PortCheck::run(const Monitor &monitor)
{
    const auto port = usablePort(monitor);
    if (!port)
        return QtFuture::makeReadyFuture(invalidPortCheck(monitor, m_now()));

    const QString host = hostOf(monitor.url).value_or(monitor.url);
    return continueOn(m_network.connect(host, *port, transferTimeout(monitor.timeout)), this,
                      [this, monitor, port = *port](const TcpResult &result) {
                          return concludedCheck(monitor, port, result, m_now());
                      });
}

} // namespace ostrel
