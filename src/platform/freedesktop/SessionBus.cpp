#include "SessionBus.h"

#include <QByteArray>

#include <sys/stat.h>
#include <unistd.h>

namespace ostrel {

namespace {

/// Whether the user's runtime folder holds a bus socket that the bus library would accept.
bool hasUserBus()
{
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    struct stat status = {};
    return !folder.isEmpty() && ::stat((folder + "/bus").constData(), &status) == 0 &&
           S_ISSOCK(status.st_mode) && status.st_uid == ::getuid();
}

/// Whether the bus library finds a bus without launching one.
bool isBusNamed()
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    return address.isEmpty() ? hasUserBus() : !address.startsWith("autolaunch:");
}

} // namespace

QDBusConnection sessionBus()
{
    return isBusNamed() ? QDBusConnection::sessionBus() : QDBusConnection(QString());
}

} // namespace ostrel
