#include "Settings.h"

#include "LoginItem.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString launchAtLoginKey()
{
    return u"launchAtLogin"_s;
}

QString playSoundsKey()
{
    return u"playSounds"_s;
}

} // namespace

Settings::Settings(LoginItem &loginItem, QObject *parent)
    : QObject(parent)
    , m_loginItem(loginItem)
{
}

bool Settings::launchAtLogin() const
{
    return m_values.value(launchAtLoginKey(), false).toBool();
}

void Settings::setLaunchAtLogin(bool isOn)
{
    if (isOn == launchAtLogin())
        return;
    m_values.setValue(launchAtLoginKey(), isOn);
    // Otherwise, an item that was disabled in the desktop's own settings would stay disabled.
    m_loginItem.unregisterItem();
    if (isOn)
        m_loginItem.registerItem();
    Q_EMIT launchAtLoginChanged();
}

bool Settings::playSounds() const
{
    return m_values.value(playSoundsKey(), true).toBool();
}

void Settings::setPlaySounds(bool isOn)
{
    if (isOn == playSounds())
        return;
    m_values.setValue(playSoundsKey(), isOn);
    Q_EMIT playSoundsChanged();
}

} // namespace ostrel
