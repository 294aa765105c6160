#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace ostrel {

/// The commands, program first, that show the notification settings on the desktop @p
/// currentDesktop, in the order in which to try them. @p currentDesktop is a value of
/// XDG_CURRENT_DESKTOP: names separated by colons, the most specific one first. Unknown names have
/// no command.
[[nodiscard]] QList<QStringList> notificationSettingsCommands(const QString &currentDesktop);

} // namespace ostrel
