#include "PortableStatusBarHost.h"

namespace ostrel {

QString PortableStatusBarHost::menuText(const QString &text) const
{
    return toolkitMenuText(text);
}

} // namespace ostrel
