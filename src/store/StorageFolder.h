#pragma once

#include <QString>
#include <QStringList>

namespace ostrel {

/// Creates the folder @p path and its missing parents, for its user alone (0700). An existing one
/// isn't changed. Reports no errors: a missing folder is noticed when it is used.
void createPrivateFolder(const QString &path);

/// Like createPrivateFolder(); false, with errno, if no files can be created in it.
[[nodiscard]] bool prepareToWrite(const QString &path);

/// Removes other users' rights to the storage folder @p path, the program's files in it and its
/// icons (0700, 0600). A folder that others use too keeps its mode: one that another user owns, a
/// sticky one, the user's home and the folders that contain it. Returns a sentence for users about
/// each file or folder that stays open to others.
[[nodiscard]] QStringList closeToOthers(const QString &path);

} // namespace ostrel
