#pragma once

#include <QString>

namespace ostrel {

/// Creates the folder @p path and its missing parents, for its user alone (0700). One that exists
/// is left as it is. Nothing is reported: that there is no folder shows when it is used.
void createPrivateFolder(const QString &path);

/// Takes the folder @p path away from everybody but its user (0700).
void makeFolderPrivate(const QString &path);

} // namespace ostrel
