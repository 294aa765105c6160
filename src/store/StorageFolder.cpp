#include "StorageFolder.h"

#include <QFile>

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>

namespace ostrel {

namespace {

void create(const std::filesystem::path &path)
{
    if (::mkdir(path.c_str(), S_IRWXU) == 0 || errno != ENOENT || !path.has_relative_path())
        return;
    create(path.parent_path());
    ::mkdir(path.c_str(), S_IRWXU);
}

} // namespace

void createPrivateFolder(const QString &path)
{
    create(QFile::encodeName(path).toStdString());
}

void makeFolderPrivate(const QString &path)
{
    ::chmod(QFile::encodeName(path).constData(), S_IRWXU);
}

} // namespace ostrel
