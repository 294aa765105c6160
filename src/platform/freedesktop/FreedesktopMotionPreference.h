#pragma once

#include "MotionPreference.h"
#include "NameOwner.h"

#include <QDBusMessage>
#include <QVariant>

#include <array>

namespace ostrel {

/// The preference as reported by the desktop portal, now and whenever it changes. Desktops keep it
/// under different keys; motion is reduced if one of them says so. Without a portal it isn't.
class FreedesktopMotionPreference final : public MotionPreference
{
    Q_OBJECT

public:
    explicit FreedesktopMotionPreference(QObject *parent = nullptr);

    /// @p bus must be connected. Call at most once.
    void follow(const QDBusConnection &bus);

private Q_SLOTS:
    void settingChanged(const QDBusMessage &signal);

private:
    void readAll(const QDBusConnection &bus);
    void takeSetting(const QString &group, const QString &key, const QVariant &value);

    NameOwner m_portal;
    std::array<bool, 3> m_wantsLess = {}; ///< Indexed like the keys.
};

} // namespace ostrel
