#include "FreedesktopNetworkPresence.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString networkManager()
{
    return u"org.freedesktop.NetworkManager"_s;
}

QString networkManagerPath()
{
    return u"/org/freedesktop/NetworkManager"_s;
}

/// NetworkManager's states from asleep through disconnected and disconnecting to connecting. Higher
/// states have a connection of some reach; 0 is unknown.
bool isWithoutConnection(uint state)
{
    constexpr uint asleep = 10;
    constexpr uint connecting = 40;
    return state >= asleep && state <= connecting;
}

/// Asks @p owner rather than the well-known name, so that the bus starts no service.
QDBusMessage stateQuestion(const QString &owner)
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        owner, networkManagerPath(), u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setArguments({networkManager(), u"State"_s});
    return question;
}

std::optional<uint> stateIn(const QDBusPendingReply<QDBusVariant> &answer)
{
    const QVariant value = answer.isValid() ? answer.value().variant() : QVariant();
    return value.typeId() == QMetaType::UInt ? std::optional(value.toUInt()) : std::nullopt;
}

} // namespace

FreedesktopNetworkPresence::FreedesktopNetworkPresence(std::chrono::milliseconds interval,
                                                       QObject *parent)
    : NetworkPresence(parent)
    , m_owner(networkManager())
{
    m_nextQuestion.setSingleShot(true);
    m_nextQuestion.setInterval(interval);
    connect(&m_nextQuestion, &QTimer::timeout, this, &FreedesktopNetworkPresence::ask);
    connect(&m_owner, &NameOwner::changed, this, &FreedesktopNetworkPresence::changeOwner);
}

void FreedesktopNetworkPresence::follow(const QDBusConnection &bus)
{
    m_bus = bus;
    m_bus->connect(QString(), networkManagerPath(), networkManager(), u"StateChanged"_s, this,
                   SLOT(stateChanged(uint, QDBusMessage)));
    m_bus->connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                   u"Disconnected"_s, this, SLOT(forget()));
    m_owner.follow(bus);
}

void FreedesktopNetworkPresence::stateChanged(uint state, const QDBusMessage &signal)
{
    if (!m_owner.uniqueName().isEmpty() && signal.service() == m_owner.uniqueName())
        takeState(state);
}

void FreedesktopNetworkPresence::forget()
{
    takeState(std::nullopt);
}

void FreedesktopNetworkPresence::changeOwner()
{
    forget();
    if (!m_owner.uniqueName().isEmpty())
        ask();
}

void FreedesktopNetworkPresence::ask()
{
    const QString owner = m_owner.uniqueName();
    const auto answer = m_bus->asyncCall(stateQuestion(owner), m_nextQuestion.interval());
    auto *watcher = new QDBusPendingCallWatcher(answer, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, owner] {
        if (owner == m_owner.uniqueName())
            takeState(stateIn(*watcher));
        watcher->deleteLater();
    });
}

void FreedesktopNetworkPresence::takeState(std::optional<uint> state)
{
    const bool isAbsent = state && isWithoutConnection(*state);
    if (isAbsent)
        m_nextQuestion.start();
    else
        m_nextQuestion.stop();
    setPresent(!isAbsent);
}

} // namespace ostrel
