#include "SavedAddress.h"

#include "Address.h"
#include "FieldText.h"

using namespace Qt::StringLiterals;

namespace ostrel {

QString savedAddress(MonitorType type, const QString &url)
{
    QString text = trimmedField(url);
    if (type == MonitorType::port || text.startsWith(u"http"_s))
        return text;
    return u"https://"_s + text;
}

QString derivedName(const QString &address)
{
    auto host = hostOf(address);
    return host ? host->remove(u"www."_s) : address.section(u'/', 0, 0);
}

QString derivedPortName(const QString &address, const QString &portText)
{
    return derivedName(address) + u':' + portText;
}

} // namespace ostrel
