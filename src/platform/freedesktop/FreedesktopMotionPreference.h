#pragma once

#include "MotionPreference.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariant>

#include <array>

namespace ostrel {

/// The preference as the desktop portal tells of it, now and whenever it changes. Desktops keep it
/// under different keys; motion is reduced where one of them says so. Without a portal it isn't.
class FreedesktopMotionPreference final : public MotionPreference
{
    Q_OBJECT

public:
    explicit FreedesktopMotionPreference(const QDBusConnection &bus, QObject *parent = nullptr);

private Q_SLOTS:
    void settingChanged(const QDBusMessage &signal);

private:
    void readAll();
    void takeSetting(const QString &group, const QString &key, const QVariant &value);

    QDBusConnection m_bus;
    std::array<bool, 3> m_wantsLess = {}; ///< By the number of the key.
};

} // namespace ostrel
