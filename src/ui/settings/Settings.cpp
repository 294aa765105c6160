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
    , m_values(u"Ostrel"_s, u"Ostrel"_s)
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
    store(launchAtLoginKey(), isOn);
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
    store(playSoundsKey(), isOn);
    Q_EMIT playSoundsChanged();
}

void Settings::store(const QString &key, bool isOn)
{
    m_values.setValue(key, isOn);
    m_values.sync();
}

} // namespace ostrel
