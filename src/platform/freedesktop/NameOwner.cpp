#include "NameOwner.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace ostrel {

NameOwner::NameOwner(const QString &name, QObject *parent)
    : QObject(parent)
    , m_name(name)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &owner) { note(owner); });
}

void NameOwner::follow(const QDBusConnection &bus)
{
    m_watcher.setConnection(bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcher.addWatchedService(m_name);
    ask(bus);
}

void NameOwner::ask(const QDBusConnection &bus)
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"GetNameOwner"_s);
    question.setArguments({m_name});
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QString> owner = *answer;
        if (owner.isValid())
            note(owner.value());
        answer->deleteLater();
    });
}

void NameOwner::note(const QString &uniqueName)
{
    if (m_uniqueName == uniqueName)
        return;
    m_uniqueName = uniqueName;
    Q_EMIT changed();
}

} // namespace ostrel
