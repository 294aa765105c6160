#pragma once

#include "DesktopPreferences.h"
#include "NameOwner.h"

#include <QDBusMessage>
#include <QMap>
#include <QVariant>

namespace ostrel {

/// The preferences as reported by the desktop portal, now and whenever they change. Desktops keep
/// them under different keys; motion is reduced and contrast is high if one of them says so.
class FreedesktopPreferences final : public DesktopPreferences
{
    Q_OBJECT

public:
    explicit FreedesktopPreferences(QObject *parent = nullptr);

    /// @p bus must be connected. Call at most once.
    void follow(const QDBusConnection &bus);

private Q_SLOTS:
    void settingChanged(const QDBusMessage &signal);

private:
    using SettingGroups = QMap<QString, QVariantMap>;

    void readAll(const QDBusConnection &bus);
    void takeSettings(const SettingGroups &settings);

    NameOwner m_portal;
    SettingGroups m_settings; ///< All that the portal has reported.
};

} // namespace ostrel
