#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace ostrel {

/// The commands, program first, that show the settings of notifications on the desktop that
/// @p currentDesktop names, the one to try first in front. It is a value of XDG_CURRENT_DESKTOP:
/// names separated by colons, the most particular one first. Unknown names have no command.
[[nodiscard]] QList<QStringList> notificationSettingsCommands(const QString &currentDesktop);

} // namespace ostrel
