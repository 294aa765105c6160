#include "ContinueOn.h"
#include "DetachedThread.h"
#include "FreedesktopLoginItem.h"
#include "FreedesktopNetworkPresence.h"
#include "FreedesktopNotificationCenter.h"
#include "FreedesktopPreferences.h"
#include "FreedesktopStatusBarHost.h"
#include "FreedesktopTerminationSignal.h"
#include "FreedesktopWakeSignal.h"
#include "FreedesktopWorkspace.h"
#include "MessageBus.h"
#include "Platform.h"

#include <QDBusConnection>
#include <QPromise>

#include <ctime>
#include <fontconfig/fontconfig.h>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// The buses of this process.
struct Buses
{
    MessageBus session{sessionBusAddresses()};
    MessageBus system{systemBusAddresses()};
    bool isSessionHidden = false;
};

Buses &buses()
{
    static Buses all;
    return all;
}

/// The toolkit's own connection, if the bus isn't hidden from it.
QDBusConnection connectSession()
{
    const Buses &all = buses();
    return all.isSessionHidden
               ? QDBusConnection::connectToBus(QString::fromLocal8Bit(all.session.addresses()),
                                               u"ostrel-session"_s)
               : QDBusConnection::sessionBus();
}

using Connect = QDBusConnection (*)();

QFuture<QDBusConnection> connectOnAnotherThread(Connect connect)
{
    const auto promise = std::make_shared<QPromise<QDBusConnection>>();
    promise->start();
    // A bus that falls silent just before the connection may block the thread for ever.
    startDetached([promise, connect] {
        promise->addResult(connect());
        promise->finish();
    });
    return promise->future();
}

/// Makes @p service follow @p bus: now if it has answered, else once it does.
template<typename Service>
void attach(Service &service, const MessageBus &bus, Connect connect)
{
    const auto follow = [&service](const QDBusConnection &connection) {
        if (connection.isConnected())
            service.follow(connection);
    };
    if (bus.answersWithin(0ms))
        return follow(connect());
    continueOn(bus.answer(), &service, [&service, connect, follow] {
        continueOn(connectOnAnotherThread(connect), &service, follow);
    });
}

template<typename Service>
void attachToSession(Service &service)
{
    attach(service, buses().session, &connectSession);
}

template<typename Service>
void attachToSystem(Service &service)
{
    attach(service, buses().system, &QDBusConnection::systemBus);
}

} // namespace

void readFontConfiguration()
{
    ::FcInit();
}

void avoidSilentServices()
{
    Buses &all = buses();
    if (all.session.answersWithin(MessageBus::defaultPatience) || !all.session.isAwaited())
        return;
    hideSessionBus();
    all.isSessionHidden = true;
}

void preparePlatform()
{
    startDetached([] {
        if (buses().session.answersWithin(0ms))
            static_cast<void>(connectSession());
        if (buses().system.answersWithin(0ms))
            static_cast<void>(QDBusConnection::systemBus());
    });
}

std::unique_ptr<NotificationCenter> makeNotificationCenter(const NotificationPresenter &)
{
    auto center = std::make_unique<FreedesktopNotificationCenter>();
    if (buses().session.isAwaited())
        center->awaitBus();
    attachToSession(*center);
    return center;
}

ContinuousTime continuousNow()
{
    timespec now = {};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

std::unique_ptr<WakeSignal> makeWakeSignal()
{
    auto signal = std::make_unique<FreedesktopWakeSignal>();
    attachToSystem(*signal);
    return signal;
}

std::unique_ptr<NetworkPresence> makeNetworkPresence()
{
    auto presence = std::make_unique<FreedesktopNetworkPresence>();
    attachToSystem(*presence);
    return presence;
}

std::unique_ptr<LoginItem> makeLoginItem()
{
    return std::make_unique<FreedesktopLoginItem>();
}

std::unique_ptr<StatusBarHost> makeStatusBarHost()
{
    auto host = std::make_unique<FreedesktopStatusBarHost>();
    // A host on a bus that is hidden from the toolkit can't show our item.
    if (!buses().isSessionHidden)
        attachToSession(*host);
    return host;
}

std::unique_ptr<TerminationSignal> makeTerminationSignal()
{
    return std::make_unique<FreedesktopTerminationSignal>();
}

std::unique_ptr<Workspace> makeWorkspace()
{
    auto workspace = std::make_unique<FreedesktopWorkspace>();
    attachToSession(*workspace);
    return workspace;
}

std::unique_ptr<DesktopPreferences> makeDesktopPreferences()
{
    auto preferences = std::make_unique<FreedesktopPreferences>();
    attachToSession(*preferences);
    return preferences;
}

} // namespace ostrel
