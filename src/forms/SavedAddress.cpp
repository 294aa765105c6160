#include "SavedAddress.h"

#include "Address.h"
#include "FieldText.h"

namespace ostrel {

QString savedAddress(MonitorType type, const QString &url)
{
    QString text = trimmedField(url);
    if (type == MonitorType::port || text.startsWith(QStringLiteral("http")))
        return text;
    return QStringLiteral("https://") + text;
}

QString derivedName(const QString &address)
{
    auto host = hostOf(address);
    return host ? host->remove(QStringLiteral("www.")) : address.section(u'/', 0, 0);
}

QString derivedPortName(const QString &address, const QString &portText)
{
    return derivedName(address) + u':' + portText;
}

} // namespace ostrel
