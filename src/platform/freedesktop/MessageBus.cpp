#include "MessageBus.h"

#include "BusHandshake.h"
#include "DetachedThread.h"

#include <QDeadlineTimer>
#include <QPromise>

#include <memory>
#include <optional>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto sessionBusVariable = "DBUS_SESSION_BUS_ADDRESS";
/// How often a bus that has hung up is tried again.
constexpr auto retryInterval = 10s;

/// The results of asking a bus.
struct Search
{
    std::promise<bool> isThere;
    QPromise<void> answer;
};

/// If there is no bus at startup, there is none for good; one that was silent may come back any
/// time.
void seekAnswer(const QByteArray &addresses, Search &search)
{
    const QDeadlineTimer never(QDeadlineTimer::Forever);
    BusAnswer given = askBus(addresses, never);
    if (given == BusAnswer::given)
        search.answer.finish();
    search.isThere.set_value(given == BusAnswer::given);
    if (given != BusAnswer::awaited)
        return; // Cancels the answer, since there is no bus.
    while (given != BusAnswer::given) {
        std::this_thread::sleep_for(retryInterval);
        given = askBus(addresses, never);
    }
    search.answer.finish();
}

/// Whether the user's runtime folder holds a bus socket that the bus library would accept.
bool hasUserBus(const QByteArray &folder)
{
    struct stat status = {};
    return !folder.isEmpty() && ::stat((folder + "/bus").constData(), &status) == 0 &&
           S_ISSOCK(status.st_mode) && status.st_uid == ::getuid();
}

/// The session bus's variable from before it was hidden; a null value if it wasn't set.
std::optional<QByteArray> hiddenSessionBus;

} // namespace

MessageBus::MessageBus(const QByteArray &addresses)
    : m_addresses(addresses)
{
    const auto search = std::make_shared<Search>();
    search->answer.start();
    m_answer = search->answer.future();
    m_isThere = search->isThere.get_future();
    startDetached([addresses, search] { seekAnswer(addresses, *search); });
}

bool MessageBus::answersWithin(std::chrono::milliseconds patience) const
{
    return m_isThere.wait_for(patience) == std::future_status::ready && m_isThere.get();
}

QByteArray sessionBusAddresses()
{
    const QByteArray addresses = qgetenv(sessionBusVariable);
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    if (addresses.isEmpty())
        return hasUserBus(folder) ? "unix:path=" + folder.toPercentEncoding("/") + "/bus"
                                  : QByteArray();
    return addresses.startsWith("autolaunch:") ? QByteArray() : addresses;
}

void hideSessionBus()
{
    hiddenSessionBus = qgetenv(sessionBusVariable);
    // An address that can't be connected to: without any, the bus library looks elsewhere.
    qputenv(sessionBusVariable, "disabled:");
}

QProcessEnvironment environmentOfPrograms()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!hiddenSessionBus)
        return environment;
    const auto variable = QString::fromLatin1(sessionBusVariable);
    if (hiddenSessionBus->isNull())
        environment.remove(variable);
    else
        environment.insert(variable, QString::fromLocal8Bit(*hiddenSessionBus));
    return environment;
}

QByteArray systemBusAddresses()
{
    const QByteArray addresses = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    return addresses.isEmpty() ? QByteArray("unix:path=/run/dbus/system_bus_socket") : addresses;
}

} // namespace ostrel
