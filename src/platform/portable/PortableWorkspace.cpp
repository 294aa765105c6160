#include "PortableWorkspace.h"

namespace ostrel {

bool PortableWorkspace::open(const QUrl &)
{
    return false;
}

bool PortableWorkspace::openFolder(const QString &)
{
    return false;
}

bool PortableWorkspace::openNotificationSettings()
{
    return false;
}

} // namespace ostrel
