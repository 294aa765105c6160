#include "PortableWorkspace.h"

namespace ostrel {

QFuture<bool> PortableWorkspace::open(const QUrl &)
{
    return QtFuture::makeReadyFuture(false);
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
