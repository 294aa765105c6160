#include "StorageFolder.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

constexpr mode_t othersRights = S_IRWXG | S_IRWXO;

/// False, with errno, if the folder exists already or can't be created.
bool create(const std::filesystem::path &path)
{
    if (::mkdir(path.c_str(), S_IRWXU) == 0)
        return true;
    if (errno != ENOENT || !path.has_relative_path())
        return false;
    return (create(path.parent_path()) || errno == EEXIST) && ::mkdir(path.c_str(), S_IRWXU) == 0;
}

bool isWritableFolder(const QByteArray &path)
{
    // With the dot, this fails if the path is a file.
    return ::faccessat(AT_FDCWD, (path + "/.").constData(), W_OK | X_OK, AT_EACCESS) == 0;
}

/// Nullopt if there is nothing at @p path, or its status can't be read.
std::optional<struct stat> statusOf(const QString &path)
{
    struct stat status
    {
    };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return status;
}

/// Whether the user's home folder is @p path or in it.
bool holdsHome(const QString &path)
{
    const QString prefix = path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
    return (QDir::homePath() + QLatin1Char('/')).startsWith(prefix);
}

/// Whether others may keep their own things in the folder @p path, which has this @p status.
bool isUsedByOthers(const QString &path, const struct stat &status)
{
    return (status.st_mode & S_ISVTX) != 0 || holdsHome(path);
}

/// Returns why others keep their rights to @p path; nullopt if they have none left.
std::optional<QString> close(const QString &path, mode_t mode)
{
    const auto status = statusOf(path);
    if (!status || (status->st_mode & othersRights) == 0)
        return std::nullopt;
    if (status->st_uid != ::geteuid())
        return u"it belongs to somebody else"_s;
    if (S_ISDIR(status->st_mode) && isUsedByOthers(path, *status))
        return u"it isn't Ostrel's alone"_s;
    if (::chmod(QFile::encodeName(path).constData(), mode) != 0)
        return qt_error_string(errno);
    const auto now = statusOf(path);
    if (now && (now->st_mode & othersRights) != 0)
        return u"its file system doesn't keep modes"_s;
    return std::nullopt;
}

/// Like closeToOthers(), for the folder @p path and the files in it that match @p names.
QStringList closeFolder(const QString &path, const QStringList &names)
{
    if (const auto reason = close(path, S_IRWXU))
        return {u"others can use %1: %2"_s.arg(path, *reason)};
    QStringList complaints;
    for (const QString &name : QDir(path).entryList(names, QDir::Files | QDir::Hidden)) {
        const QString file = path + QLatin1Char('/') + name;
        if (const auto reason = close(file, S_IRUSR | S_IWUSR))
            complaints += u"others can use %1: %2"_s.arg(file, *reason);
    }
    return complaints;
}

} // namespace

void createPrivateFolder(const QString &path)
{
    create(QFile::encodeName(path).toStdString());
}

bool prepareToWrite(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (isWritableFolder(name))
        return true;
    return errno == ENOENT && (create(name.toStdString()) || errno == EEXIST) &&
           isWritableFolder(name);
}

QStringList closeToOthers(const QString &path)
{
    const QStringList files = {u"monitors.json*"_s, u"checks.json*"_s, u"ostrel.lock"_s};
    return closeFolder(path, files) + closeFolder(path + u"/favicons"_s, {u"*"_s});
}

} // namespace ostrel
