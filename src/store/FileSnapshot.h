#pragma once

#include "FileDescriptor.h"

#include <QtGlobal>

#include <ctime>
#include <span>
#include <sys/types.h>

struct stat;

namespace ostrel {

/// In bytes, 1 GiB: no real data is larger. A larger file counts as unreadable.
inline constexpr quint64 maxStoredFileSize = quint64(1) << 30;

/// A file's content at one moment, whatever takes the file's name or place later.
///
/// Holds the file open. If someone writes into the file itself, the snapshot is invalid, which is
/// detected; but within one tick of the file system's clock (a few milliseconds) after the snapshot
/// was taken, only if the size changes.
class FileSnapshot
{
public:
    FileSnapshot() = default; ///< A snapshot of no file.
    /// A snapshot of the ordinary file @p file, which had this @p status.
    FileSnapshot(FileDescriptor file, const struct stat &status);

    [[nodiscard]] bool isOfAFile() const { return m_file.isOpen(); }
    [[nodiscard]] quint64 size() const { return static_cast<quint64>(m_size); } ///< In bytes.
    /// Whether there is a content, and it is unchanged.
    [[nodiscard]] bool isIntact() const;
    /// Whether this is a snapshot of the very file that has this @p status, and that is unchanged.
    [[nodiscard]] bool isOf(const struct stat &status) const;

    /// Fills @p room with the content from byte @p offset on. False if it can't be read or the file
    /// ends before.
    [[nodiscard]] bool read(quint64 offset, std::span<char> room) const;

private:
    FileDescriptor m_file;
    dev_t m_device = 0;
    ino_t m_number = 0;
    qint64 m_size = 0;
    timespec m_changed = {}; ///< The last change of the file's content or of its names.
};

} // namespace ostrel
