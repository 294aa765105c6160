#include "FormValidation.h"

#include "FieldText.h"

using namespace Qt::StringLiterals;

namespace ostrel {

bool isValidWebsite(const QString &url)
{
    const QString text = trimmedField(url);
    return text.contains(u'.') || text.startsWith(u"http"_s);
}

bool isValidHostAndPort(const QString &host, const QString &portText)
{
    return !trimmedField(host).isEmpty() && integerFrom(portText).value_or(0) > 0;
}

} // namespace ostrel
