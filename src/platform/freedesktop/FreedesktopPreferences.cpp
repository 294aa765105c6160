#include "FreedesktopPreferences.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QDBusMessage portalCall(const QString &method)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s,
                                          u"/org/freedesktop/portal/desktop"_s,
                                          u"org.freedesktop.portal.Settings"_s, method);
}

QString appearance()
{
    return u"org.freedesktop.appearance"_s;
}

QString gnomeInterface()
{
    return u"org.gnome.desktop.interface"_s;
}

QString gnomeAccessibility()
{
    return u"org.gnome.desktop.a11y.interface"_s;
}

QString kdeGlobals()
{
    return u"org.kde.kdeglobals.KDE"_s;
}

/// Whether @p factor is a text with a number that stops the session's animations, whose durations
/// are multiplied by it.
bool stopsAnimations(const QVariant &factor)
{
    bool isNumber = false;
    return factor.toDouble(&isNumber) <= 0 && isNumber;
}

bool isOne(const QVariant &value)
{
    return value.typeId() == QMetaType::UInt && value.toUInt() == 1;
}

bool isFalse(const QVariant &value)
{
    return value.typeId() == QMetaType::Bool && !value.toBool();
}

bool isTrue(const QVariant &value)
{
    return value.typeId() == QMetaType::Bool && value.toBool();
}

std::optional<bool> countsToTwelve(const QVariant &clockFormat)
{
    if (clockFormat == u"12h"_s)
        return true;
    return clockFormat == u"24h"_s ? std::optional(false) : std::nullopt;
}

} // namespace

FreedesktopPreferences::FreedesktopPreferences(QObject *parent)
    : DesktopPreferences(parent)
    , m_portal(portalCall({}).service())
{
}

void FreedesktopPreferences::follow(const QDBusConnection &bus)
{
    const QDBusMessage portal = portalCall({});
    QDBusConnection(bus).connect(QString(), portal.path(), portal.interface(), u"SettingChanged"_s,
                                 this, SLOT(settingChanged(QDBusMessage)));
    m_portal.follow(bus);
    readAll(bus);
}

void FreedesktopPreferences::readAll(const QDBusConnection &bus)
{
    QDBusMessage call = portalCall(u"ReadAll"_s);
    call.setArguments(
        {QStringList{appearance(), gnomeInterface(), gnomeAccessibility(), kdeGlobals()}});
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        if (reply.type() == QDBusMessage::ReplyMessage && reply.signature() == u"a{sa{sv}}"_s)
            takeSettings(qdbus_cast<SettingGroups>(reply.arguments().constFirst()));
    });
}

void FreedesktopPreferences::settingChanged(const QDBusMessage &signal)
{
    if (signal.service() != m_portal.uniqueName() || signal.signature() != u"ssv"_s)
        return;
    const QVariantList arguments = signal.arguments();
    SettingGroups settings = m_settings;
    settings[arguments.at(0).toString()].insert(arguments.at(1).toString(),
                                                arguments.at(2).value<QDBusVariant>().variant());
    takeSettings(settings);
}

void FreedesktopPreferences::takeSettings(const SettingGroups &settings)
{
    m_settings = settings;
    const auto setting = [this](const QString &group, const QString &key) {
        return m_settings.value(group).value(key);
    };
    setValues({
        .isMotionReduced = isOne(setting(appearance(), u"reduced-motion"_s)) ||
                           isFalse(setting(gnomeInterface(), u"enable-animations"_s)) ||
                           stopsAnimations(setting(kdeGlobals(), u"AnimationDurationFactor"_s)),
        .isContrastHigh = isOne(setting(appearance(), u"contrast"_s)) ||
                          isTrue(setting(gnomeAccessibility(), u"high-contrast"_s)),
        .countsToTwelve = countsToTwelve(setting(gnomeInterface(), u"clock-format"_s)),
    });
}

} // namespace ostrel
