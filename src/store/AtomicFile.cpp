#include "AtomicFile.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace ostrel {

namespace {

/// As many as the kernel follows.
constexpr int maxLinks = 40;

/// The target of @p path after following symbolic links, whether it exists or not. Unlike with a
/// canonical path, the target of a dangling link can be created.
std::string resolved(std::filesystem::path path)
{
    for (int i = 0; i < maxLinks; ++i) {
        std::error_code isNoLink;
        const auto target = std::filesystem::read_symlink(path, isNoLink);
        if (isNoLink)
            break;
        path = path.parent_path() / target;
    }
    return path.string();
}

/// The status of an ordinary file; nullopt for a folder, a pipe or a device.
std::optional<struct stat> statusOf(const FileDescriptor &file)
{
    struct stat status
    {
    };
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return status;
}

/// Doesn't wait for the other end if it is a pipe.
FileDescriptor openForReading(const std::string &path)
{
    return FileDescriptor(uninterrupted(
        [&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
}

/// Gives the file at @p path the additional name @p kept. False if that fails, with EEXIST if the
/// name is taken.
bool giveSecondName(const std::string &path, const std::string &kept)
{
    if (::link(path.c_str(), kept.c_str()) == 0)
        return true;
    if (errno == EEXIST || errno == ENOENT)
        return false;
    // On a file system without hard links, there is no file at the first name for a moment.
    struct stat status
    {
    };
    if (::lstat(kept.c_str(), &status) == 0) {
        errno = EEXIST;
        return false;
    }
    return ::rename(path.c_str(), kept.c_str()) == 0;
}

/// How many names temporary files can have. No one gives that many other things such names.
constexpr int maxTemporaryNames = 16;

std::string temporaryName(const std::string &path, int number)
{
    const std::string name = path + ".tmp";
    return number == 1 ? name : name + '-' + std::to_string(number);
}

/// Removes what a crash has left at @p path, but only an ordinary file owned by this user.
void removeLeftover(const std::string &path)
{
    struct stat status
    {
    };
    if (::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_uid == ::geteuid())
        ::unlink(path.c_str());
}

/// The mode to create a file with, which the umask restricts further.
mode_t modeFor(AtomicFile::Access access)
{
    constexpr mode_t user = S_IRUSR | S_IWUSR;
    constexpr mode_t others = S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    return access == AtomicFile::Access::user ? user : user | others;
}

/// Makes two ordinary files exchange their names. False if they can't, and then nothing changes.
bool exchangeNames(const std::string &first, const std::string &second)
{
    struct stat status
    {
    };
    return ::lstat(second.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::renameat2(AT_FDCWD, first.c_str(), AT_FDCWD, second.c_str(), RENAME_EXCHANGE) == 0;
}

std::string folderOf(const std::string &path)
{
    return std::filesystem::path(path).parent_path().string();
}

} // namespace

/// A new file beside the one that it will replace; removed with this object unless it has replaced
/// it.
class AtomicFile::Temporary
{
public:
    /// Creates it beside @p path. Not open, with errno, if that fails.
    Temporary(const std::string &path, Access access);
    ~Temporary();
    Q_DISABLE_COPY(Temporary)

    [[nodiscard]] FileDescriptor &file() { return m_file; }

    /// Replaces the file at @p path. Sets @p snapshot, unless it is null, to the content.
    [[nodiscard]] bool replace(const std::string &path, Flush flush, FileSnapshot *snapshot);
    /// Appears at @p path; false, with EEXIST, if something has that name.
    [[nodiscard]] bool appear(const std::string &path) { return giveSecondName(m_path, path); }

private:
    [[nodiscard]] bool takeName(const std::string &path, Flush flush);

    std::string m_path; ///< Of the file to remove; empty if there is none.
    FileDescriptor m_file;
};

AtomicFile::Temporary::Temporary(const std::string &path, Access access)
{
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    for (int number = 1; number <= maxTemporaryNames; ++number) {
        const std::string name = temporaryName(path, number);
        // Creates a fresh file, so that the mode or links of an old one don't matter.
        if (access == Access::user)
            removeLeftover(name);
        m_file = FileDescriptor(
            uninterrupted([&] { return ::open(name.c_str(), flags, modeFor(access)); }));
        if (m_file.isOpen())
            m_path = name;
        if (m_file.isOpen() || errno != EEXIST)
            return;
    }
}

AtomicFile::Temporary::~Temporary()
{
    const int reason = errno;
    if (!m_path.empty())
        ::unlink(m_path.c_str());
    errno = reason;
}

bool AtomicFile::Temporary::replace(const std::string &path, Flush flush, FileSnapshot *snapshot)
{
    FileDescriptor file = snapshot ? openForReading(m_path) : FileDescriptor();
    if (!takeName(path, flush))
        return false;
    // Only after the rename, which counts as a change of the file.
    if (const auto status = statusOf(file))
        *snapshot = FileSnapshot(std::move(file), *status);
    else if (snapshot)
        *snapshot = FileSnapshot();
    return true;
}

bool AtomicFile::Temporary::takeName(const std::string &path, Flush flush)
{
    // ext4 and Btrfs flush a file that is renamed over another, but not one of two that exchange
    // their names. The temporary name is the old file's after that.
    if (flush == Flush::avoided && exchangeNames(m_path, path))
        return true;
    if (::rename(m_path.c_str(), path.c_str()) != 0)
        return false;
    m_path.clear();
    return true;
}

AtomicFile::AtomicFile(const QString &path, Sync sync, Access access)
    : m_path(resolved(QFile::encodeName(path).toStdString()))
    , m_sync(std::move(sync))
    , m_access(access)
{
}

bool AtomicFile::waitForTheDisk(const FileDescriptor &file)
{
    return uninterrupted([&] { return ::fsync(file.number()); }) == 0;
}

FileSnapshot AtomicFile::snapshot() const
{
    FileDescriptor file = openForReading(m_path);
    const auto status = statusOf(file);
    return status ? FileSnapshot(std::move(file), *status) : FileSnapshot();
}

std::optional<QByteArray> AtomicFile::read(FileSnapshot *snapshot) const
{
    FileSnapshot current = this->snapshot();
    if (!current.isOfAFile() || current.size() > maxStoredFileSize)
        return std::nullopt;
    QByteArray bytes(static_cast<qsizetype>(current.size()), Qt::Uninitialized);
    const std::span<char> room(bytes.data(), static_cast<std::size_t>(bytes.size()));
    if (!current.read(0, room))
        return std::nullopt;
    if (snapshot)
        *snapshot = std::move(current);
    return bytes;
}

bool AtomicFile::exists() const
{
    struct stat status
    {
    };
    return ::lstat(m_path.c_str(), &status) == 0 || errno != ENOENT;
}

bool AtomicFile::holds(const FileSnapshot &snapshot) const
{
    struct stat status
    {
    };
    if (::stat(m_path.c_str(), &status) != 0)
        return !snapshot.isOfAFile() && !exists();
    return snapshot.isOf(status);
}

bool AtomicFile::write(const Fill &fill, Flush flush, FileSnapshot *snapshot) const
{
    Temporary temporary(m_path, m_access);
    return fillIn(temporary, fill, flush) && temporary.replace(m_path, flush, snapshot);
}

bool AtomicFile::writeNew(const Fill &fill, Flush flush) const
{
    Temporary temporary(m_path, m_access);
    return fillIn(temporary, fill, flush) && temporary.appear(m_path);
}

bool AtomicFile::writeKeepingOld(const Fill &fill, Flush flush, std::string_view suffix,
                                 FileSnapshot *snapshot) const
{
    Temporary temporary(m_path, m_access);
    return fillIn(temporary, fill, flush) && keep(suffix) &&
           temporary.replace(m_path, flush, snapshot);
}

bool AtomicFile::flush(const Sync &sync) const
{
    const FileDescriptor file = openForReading(m_path);
    const FileDescriptor folder = openForReading(folderOf(m_path));
    return file.isOpen() && sync(file) && folder.isOpen() && sync(folder);
}

void AtomicFile::removeLeftovers() const
{
    for (int number = 1; number <= maxTemporaryNames; ++number)
        removeLeftover(temporaryName(m_path, number));
}

bool AtomicFile::fillIn(Temporary &temporary, const Fill &fill, Flush flush) const
{
    FileDescriptor &file = temporary.file();
    if (!file.isOpen())
        return false;
    ContentWriter content(file.number());
    if (!fill(content) || !content.finish())
        return false;
    if (flush == Flush::beforeReplacing && !m_sync(file))
        return false;
    return file.close();
}

bool AtomicFile::keep(std::string_view suffix) const
{
    const std::string base = m_path + '.' + std::string(suffix);
    std::string name = base;
    for (int number = 2; !giveSecondName(m_path, name); ++number) {
        if (errno != EEXIST)
            return errno == ENOENT; // Then there is nothing to keep.
        name = base + '-' + std::to_string(number);
    }
    return true;
}

} // namespace ostrel
