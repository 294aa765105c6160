#include "CheckedAddress.h"

#include "Address.h"

namespace ostrel {

namespace {

QString bracketed(const QString &host)
{
    const bool isIpv6 = host.contains(u':') && !host.startsWith(u'[');
    return isIpv6 ? u'[' + host + u']' : host;
}

} // namespace

QString checkedAddress(const Monitor &monitor)
{
    if (monitor.type == MonitorType::http)
        return monitor.url;
    const QString host = bracketed(hostOf(monitor.url).value_or(monitor.url));
    return monitor.port ? host + u':' + QString::number(*monitor.port) : host;
}

} // namespace ostrel
