#include "FreedesktopLoginItem.h"
#include "FreedesktopMotionPreference.h"
#include "FreedesktopNetworkPresence.h"
#include "FreedesktopNotificationCenter.h"
#include "FreedesktopSingleInstance.h"
#include "FreedesktopStatusBarHost.h"
#include "FreedesktopTerminationSignal.h"
#include "FreedesktopWakeSignal.h"
#include "FreedesktopWorkspace.h"
#include "Platform.h"
#include "SessionBus.h"

#include <QThreadPool>

#include <fontconfig/fontconfig.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace ostrel {

void keepMemorySmall()
{
#ifdef __GLIBC__
    // By itself the C library gives each thread a heap of its own, and what one has freed no other
    // uses: half a megabyte here. Few of the threads allocate at the same time.
    ::mallopt(M_ARENA_MAX, 2);
#endif
}

void returnFreedMemory()
{
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

void readFontConfiguration()
{
    ::FcInit();
}

void preparePlatform()
{
    QThreadPool::globalInstance()->start([] {
        static_cast<void>(sessionBus());
        static_cast<void>(QDBusConnection::systemBus());
    });
}

std::unique_ptr<NotificationCenter> makeNotificationCenter(const NotificationPresenter &)
{
    return std::make_unique<FreedesktopNotificationCenter>();
}

std::unique_ptr<WakeSignal> makeWakeSignal()
{
    return std::make_unique<FreedesktopWakeSignal>();
}

std::unique_ptr<NetworkPresence> makeNetworkPresence()
{
    auto presence = std::make_unique<FreedesktopNetworkPresence>();
    if (const auto bus = QDBusConnection::systemBus(); bus.isConnected())
        presence->follow(bus);
    return presence;
}

std::unique_ptr<LoginItem> makeLoginItem()
{
    return std::make_unique<FreedesktopLoginItem>();
}

std::unique_ptr<SingleInstance> makeSingleInstance(const QString &storageDir)
{
    return std::make_unique<FreedesktopSingleInstance>(storageDir);
}

std::unique_ptr<StatusBarHost> makeStatusBarHost()
{
    return std::make_unique<FreedesktopStatusBarHost>();
}

std::unique_ptr<TerminationSignal> makeTerminationSignal()
{
    return std::make_unique<FreedesktopTerminationSignal>();
}

std::unique_ptr<Workspace> makeWorkspace()
{
    return std::make_unique<FreedesktopWorkspace>();
}

std::unique_ptr<MotionPreference> makeMotionPreference()
{
    return std::make_unique<FreedesktopMotionPreference>(sessionBus());
}

} // namespace ostrel
