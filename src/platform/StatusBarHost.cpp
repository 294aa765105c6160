#include "StatusBarHost.h"

using namespace Qt::StringLiterals;

namespace ostrel {

QString StatusBarHost::toolkitMenuText(const QString &text)
{
    return QString(text).replace(u"&"_s, u"&&"_s);
}

} // namespace ostrel
