#include "Platform.h"
#include "PortableLoginItem.h"
#include "PortableNetworkPresence.h"
#include "PortableNotificationCenter.h"
#include "PortableStatusBarHost.h"
#include "PortableTerminationSignal.h"
#include "PortableWakeSignal.h"
#include "PortableWorkspace.h"

#include <QThread>

namespace ostrel {

void raiseDescriptorLimit() {}

void readFontConfiguration() {}

void avoidSilentServices() {}

void preparePlatform() {}

std::unique_ptr<NotificationCenter> makeNotificationCenter(const NotificationPresenter &presenter)
{
    return std::make_unique<PortableNotificationCenter>(presenter);
}

void lowerThreadPriority()
{
    QThread::currentThread()->setPriority(QThread::LowPriority);
}

ContinuousTime continuousNow()
{
    // Continues during sleep on Windows and macOS, for which this implementation is.
    return std::chrono::steady_clock::now().time_since_epoch();
}

std::unique_ptr<WakeSignal> makeWakeSignal()
{
    return std::make_unique<PortableWakeSignal>();
}

std::unique_ptr<NetworkPresence> makeNetworkPresence()
{
    return std::make_unique<PortableNetworkPresence>();
}

std::unique_ptr<LoginItem> makeLoginItem()
{
    return std::make_unique<PortableLoginItem>();
}

std::unique_ptr<StatusBarHost> makeStatusBarHost()
{
    return std::make_unique<PortableStatusBarHost>();
}

std::unique_ptr<TerminationSignal> makeTerminationSignal()
{
    return std::make_unique<PortableTerminationSignal>();
}

std::unique_ptr<Workspace> makeWorkspace()
{
    return std::make_unique<PortableWorkspace>();
}

// Qt has no function for this.
std::unique_ptr<DesktopPreferences> makeDesktopPreferences()
{
    return std::make_unique<DesktopPreferences>();
}

} // namespace ostrel
