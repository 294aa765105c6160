#pragma once

#include <QString>
#include <QStringList>

namespace ostrel {

/// Creates the folder @p path and its missing parents, for its user alone (0700). One that exists
/// is left as it is. Nothing is reported: that there is no folder shows when it is used.
void createPrivateFolder(const QString &path);

/// As createPrivateFolder(); false, with errno, where files can't be made in it.
[[nodiscard]] bool prepareToWrite(const QString &path);

/// Takes the storage folder @p path, the program's files in it and its icons away from everybody
/// but their user (0700, 0600). A folder that others use too keeps its mode: one of another user, a
/// sticky one, the user's home and what that is in. Gives a sentence for people for each that stays
/// open to others.
[[nodiscard]] QStringList closeToOthers(const QString &path);

} // namespace ostrel
