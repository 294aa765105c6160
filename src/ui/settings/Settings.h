#pragma once

#include "StoredPreferences.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

class LoginItem;

/// The user's two preferences, stored as soon as they change. Main thread.
class Settings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(
        bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY launchAtLoginChanged)
    Q_PROPERTY(bool playSounds READ playSounds WRITE setPlaySounds NOTIFY playSoundsChanged)

public:
    /// @p loginItem must outlive this object, and isn't used until the user changes launchAtLogin.
    explicit Settings(LoginItem &loginItem, QObject *parent = nullptr);

    /// False until the user has chosen.
    [[nodiscard]] bool launchAtLogin() const;
    /// Notifies the desktop, too. If it refuses, the user's choice is kept all the same.
    void setLaunchAtLogin(bool isOn);

    /// True until the user has chosen. Notifications ignore it: their sound is the desktop's.
    [[nodiscard]] bool playSounds() const;
    void setPlaySounds(bool isOn);

Q_SIGNALS:
    void launchAtLoginChanged();
    void playSoundsChanged();

private:
    LoginItem &m_loginItem;
    StoredPreferences m_values;
};

} // namespace ostrel
