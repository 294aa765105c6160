#include "AtomicFile.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>
#include <vector>

namespace ostrel {

namespace {

/// As many as the kernel follows.
constexpr int maxLinks = 40;

/// Repeats @p call while a signal interrupts it.
template<typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// An open file. Negative where it could not be opened.
class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor() { close(); }
    Q_DISABLE_COPY_MOVE(Descriptor)

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

    /// False where the system reports only now that it could not write.
    bool close()
    {
        if (!isOpen())
            return true;
        const int result = ::close(std::exchange(m_number, -1));
        // The descriptor is closed all the same, so another try would close somebody else's.
        return result == 0 || errno == EINTR;
    }

private:
    int m_number;
};

/// What @p path names past all symbolic links, whether it exists or not; other than a canonical
/// path, so that the target of a dangling link can be created.
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

/// Drops the first @p count bytes from @p vectors.
std::span<iovec> withoutFirst(std::span<iovec> vectors, std::size_t count)
{
    while (!vectors.empty() && count >= vectors.front().iov_len) {
        count -= vectors.front().iov_len;
        vectors = vectors.subspan(1);
    }
    if (!vectors.empty()) {
        vectors.front().iov_base = static_cast<char *>(vectors.front().iov_base) + count;
        vectors.front().iov_len -= count;
    }
    return vectors;
}

std::vector<iovec> vectorsOf(std::span<const std::string_view> pieces)
{
    std::vector<iovec> vectors;
    vectors.reserve(pieces.size());
    for (const std::string_view piece : pieces)
        vectors.push_back({const_cast<char *>(piece.data()), piece.size()});
    return vectors;
}

/// Gathers @p pieces in as few calls as the system allows, since a single one of them may be small.
bool writeAll(int descriptor, std::span<const std::string_view> pieces)
{
    auto vectors = vectorsOf(pieces);
    auto rest = withoutFirst(vectors, 0);
    while (!rest.empty()) {
        const auto count = static_cast<int>(std::min<std::size_t>(rest.size(), IOV_MAX));
        const auto written =
            uninterrupted([&] { return ::writev(descriptor, rest.data(), count); });
        if (written <= 0)
            return false;
        rest = withoutFirst(rest, static_cast<std::size_t>(written));
    }
    return true;
}

/// The size of an ordinary file; nothing for a folder, a pipe or a device.
std::optional<qsizetype> sizeOf(int descriptor)
{
    struct stat status
    {
    };
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<qsizetype>(status.st_size);
}

/// Fills @p bytes from the file, and cuts it where the file ends sooner.
bool readAll(int descriptor, QByteArray &bytes)
{
    qsizetype filled = 0;
    while (filled < bytes.size()) {
        const auto room = static_cast<std::size_t>(bytes.size() - filled);
        const auto count =
            uninterrupted([&] { return ::read(descriptor, bytes.data() + filled, room); });
        if (count < 0)
            return false;
        if (count == 0)
            break;
        filled += static_cast<qsizetype>(count);
    }
    bytes.truncate(filled);
    return true;
}

/// Gives the file at @p path the second name @p kept, and leaves it its first. False where that
/// fails, with EEXIST where the name is taken.
bool giveSecondName(const std::string &path, const std::string &kept)
{
    if (::link(path.c_str(), kept.c_str()) == 0)
        return true;
    if (errno == EEXIST || errno == ENOENT)
        return false;
    // A file system without hard links: for a moment there is no file at the first name.
    struct stat status
    {
    };
    if (::lstat(kept.c_str(), &status) == 0) {
        errno = EEXIST;
        return false;
    }
    return ::rename(path.c_str(), kept.c_str()) == 0;
}

} // namespace

AtomicFile::AtomicFile(const QString &path)
    : m_path(resolved(QFile::encodeName(path).toStdString()))
    , m_temporaryPath(m_path + ".tmp")
{
}

std::optional<QByteArray> AtomicFile::read() const
{
    // Without waiting for the other end, if it is a pipe.
    const Descriptor file(uninterrupted(
        [&] { return ::open(m_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    const auto size = file.isOpen() ? sizeOf(file.number()) : std::nullopt;
    if (!size)
        return std::nullopt;
    QByteArray bytes(*size, Qt::Uninitialized);
    if (!readAll(file.number(), bytes))
        return std::nullopt;
    return bytes;
}

bool AtomicFile::exists() const
{
    struct stat status
    {
    };
    return ::lstat(m_path.c_str(), &status) == 0;
}

bool AtomicFile::write(std::span<const std::string_view> pieces, Flush flush) const
{
    if (writeTemporary(pieces, flush) && replace())
        return true;
    removeLeftover();
    return false;
}

bool AtomicFile::writeKeepingOld(std::span<const std::string_view> pieces, Flush flush,
                                 std::string_view suffix) const
{
    if (writeTemporary(pieces, flush) && keep(suffix) && replace())
        return true;
    removeLeftover();
    return false;
}

void AtomicFile::removeLeftover() const
{
    ::unlink(m_temporaryPath.c_str());
}

bool AtomicFile::writeTemporary(std::span<const std::string_view> pieces, Flush flush) const
{
    // A fresh file, so that neither the mode nor a link of an old one counts.
    removeLeftover();
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    Descriptor file(
        uninterrupted([&] { return ::open(m_temporaryPath.c_str(), flags, S_IRUSR | S_IWUSR); }));
    if (!file.isOpen() || !writeAll(file.number(), pieces))
        return false;
    if (flush == Flush::beforeReplacing &&
        uninterrupted([&] { return ::fsync(file.number()); }) != 0)
        return false;
    return file.close();
}

bool AtomicFile::replace() const
{
    return ::rename(m_temporaryPath.c_str(), m_path.c_str()) == 0;
}

bool AtomicFile::keep(std::string_view suffix) const
{
    const std::string base = m_path + '.' + std::string(suffix);
    std::string name = base;
    for (int number = 2; !giveSecondName(m_path, name); ++number) {
        if (errno != EEXIST)
            return errno == ENOENT; // then there is nothing to keep
        name = base + '-' + std::to_string(number);
    }
    return true;
}

} // namespace ostrel
