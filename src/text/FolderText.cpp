#include "FolderText.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString withFinalSlash(const QString &path)
{
    const QString clean = QDir::cleanPath(path);
    return clean.endsWith(u'/') ? clean : clean + u'/';
}

} // namespace

QString folderText(const QString &path, const QString &home)
{
    QString folder = withFinalSlash(path);
    const QString homeFolder = withFinalSlash(home);
    // A home at the root, which no real home is, would abbreviate every folder.
    if (homeFolder == u"/"_s || !folder.startsWith(homeFolder))
        return folder;
    return u"~/"_s + folder.sliced(homeFolder.size());
}

} // namespace ostrel
