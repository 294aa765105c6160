#include "NotificationSettings.h"

namespace ostrel {

namespace {

struct SettingsProgram
{
    const char *desktop; ///< The desktop's own name, in lower case.
    const char *command;
};

constexpr SettingsProgram settingsPrograms[] = {
    {"budgie", "budgie-control-center notifications"},
    {"gnome", "gnome-control-center notifications"},
    {"kde", "systemsettings kcm_notifications"},
    {"kde", "systemsettings5 kcm_notifications"},
    {"lxqt", "lxqt-config-notificationd"},
    {"mate", "mate-notification-properties"},
    {"x-cinnamon", "cinnamon-settings notifications"},
    {"xfce", "xfce4-notifyd-config"},
};

} // namespace

QList<QStringList> notificationSettingsCommands(const QString &currentDesktop)
{
    QList<QStringList> commands;
    for (const QString &desktop : currentDesktop.toLower().split(u':')) {
        for (const SettingsProgram &program : settingsPrograms) {
            if (desktop == QLatin1String(program.desktop))
                commands.append(QString::fromLatin1(program.command).split(u' '));
        }
    }
    return commands;
}

} // namespace ostrel
