#include "FileSnapshot.h"

#include <sys/stat.h>

namespace ostrel {

FileSnapshot::FileSnapshot(FileDescriptor file, const struct stat &status)
    : m_file(std::move(file))
    , m_device(status.st_dev)
    , m_number(status.st_ino)
    , m_size(status.st_size)
    , m_changed(status.st_ctim)
{
}

bool FileSnapshot::isIntact() const
{
    struct stat status
    {
    };
    return isOfAFile() && ::fstat(m_file.number(), &status) == 0 && isOf(status);
}

bool FileSnapshot::isOf(const struct stat &status) const
{
    // While the file is open, its inode number isn't reused.
    return isOfAFile() && status.st_dev == m_device && status.st_ino == m_number &&
           status.st_size == m_size && status.st_ctim.tv_sec == m_changed.tv_sec &&
           status.st_ctim.tv_nsec == m_changed.tv_nsec;
}

bool FileSnapshot::read(quint64 offset, std::span<char> room) const
{
    while (!room.empty()) {
        const auto count = uninterrupted([&] {
            return ::pread(m_file.number(), room.data(), room.size(), static_cast<off_t>(offset));
        });
        if (count <= 0)
            return false;
        offset += static_cast<quint64>(count);
        room = room.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace ostrel
