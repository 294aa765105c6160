#include "FreedesktopMotionPreference.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using SettingGroups = QMap<QString, QVariantMap>;

struct MotionKey
{
    const char *group;
    const char *key;
    bool (*wantsLess)(const QVariant &value);
};

constexpr MotionKey motionKeys[] = {
    {"org.freedesktop.appearance", "reduced-motion",
     [](const QVariant &value) { return value.toUInt() == 1; }},
    {"org.gnome.desktop.interface", "enable-animations",
     [](const QVariant &value) { return value.typeId() == QMetaType::Bool && !value.toBool(); }},
    // A text with a number, by which the durations of the session's animations are multiplied.
    {"org.kde.kdeglobals.KDE", "AnimationDurationFactor",
     [](const QVariant &value) {
         bool isNumber = false;
         return value.toDouble(&isNumber) <= 0 && isNumber;
     }},
};

QDBusMessage portalCall(const QString &method)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s,
                                          u"/org/freedesktop/portal/desktop"_s,
                                          u"org.freedesktop.portal.Settings"_s, method);
}

} // namespace

FreedesktopMotionPreference::FreedesktopMotionPreference(QObject *parent)
    : MotionPreference(parent)
    , m_portal(portalCall({}).service())
{
}

void FreedesktopMotionPreference::follow(const QDBusConnection &bus)
{
    const QDBusMessage portal = portalCall({});
    QDBusConnection(bus).connect(QString(), portal.path(), portal.interface(), u"SettingChanged"_s,
                                 this, SLOT(settingChanged(QDBusMessage)));
    m_portal.follow(bus);
    readAll(bus);
}

void FreedesktopMotionPreference::readAll(const QDBusConnection &bus)
{
    QStringList groups;
    for (const MotionKey &key : motionKeys)
        groups += QString::fromLatin1(key.group);
    QDBusMessage call = portalCall(u"ReadAll"_s);
    call.setArguments({groups});
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"a{sa{sv}}"_s)
            return;
        const auto found = qdbus_cast<SettingGroups>(reply.arguments().constFirst());
        for (auto group = found.begin(); group != found.end(); ++group) {
            for (auto entry = group->begin(); entry != group->end(); ++entry)
                takeSetting(group.key(), entry.key(), entry.value());
        }
    });
}

void FreedesktopMotionPreference::settingChanged(const QDBusMessage &signal)
{
    if (signal.service() != m_portal.uniqueName() || signal.signature() != u"ssv"_s)
        return;
    const QVariantList arguments = signal.arguments();
    takeSetting(arguments.at(0).toString(), arguments.at(1).toString(),
                arguments.at(2).value<QDBusVariant>().variant());
}

void FreedesktopMotionPreference::takeSetting(const QString &group, const QString &key,
                                              const QVariant &value)
{
    for (std::size_t i = 0; i < m_wantsLess.size(); ++i) {
        const MotionKey &known = motionKeys[i];
        if (group == QLatin1String(known.group) && key == QLatin1String(known.key))
            m_wantsLess[i] = known.wantsLess(value);
    }
    setReduced(std::ranges::find(m_wantsLess, true) != m_wantsLess.end());
}

} // namespace ostrel
