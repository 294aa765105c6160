#include "StatusBarHost.h"

namespace ostrel {

QString StatusBarHost::toolkitMenuText(const QString &text)
{
    return QString(text).replace(QStringLiteral("&"), QStringLiteral("&&"));
}

} // namespace ostrel
