#pragma once

#include "FileDescriptor.h"

#include <QtGlobal>

#include <ctime>
#include <span>
#include <sys/types.h>

struct stat;

namespace ostrel {

/// In bytes, 1 GiB: what is larger, nobody has written. It counts as unreadable.
inline constexpr quint64 maxStoredFileSize = quint64(1) << 30;

/// A file's content as it was at one moment, whatever takes the file's name or place later.
///
/// Holds the file open. Somebody who writes into the file itself spoils the snapshot, which is
/// seen; within the few milliseconds that a file system's clock takes from one tick to the next
/// after the snapshot was taken, only if the size changes.
class FileSnapshot
{
public:
    FileSnapshot() = default; ///< Of nothing.
    /// Of the ordinary file @p file that had this @p status.
    FileSnapshot(FileDescriptor file, const struct stat &status);

    [[nodiscard]] bool isOfAFile() const { return m_file.isOpen(); }
    [[nodiscard]] quint64 size() const { return static_cast<quint64>(m_size); } ///< In bytes.
    /// Whether there is a content, and it is as it was.
    [[nodiscard]] bool isIntact() const;
    /// Whether it is of the very file that has this @p status, and that is as it was.
    [[nodiscard]] bool isOf(const struct stat &status) const;

    /// Fills @p room with what stands from byte @p offset on. False where that can't be read or the
    /// file ends before.
    [[nodiscard]] bool read(quint64 offset, std::span<char> room) const;

private:
    FileDescriptor m_file;
    dev_t m_device = 0;
    ino_t m_number = 0;
    qint64 m_size = 0;
    timespec m_changed = {}; ///< When the file's content or its names were last changed.
};

} // namespace ostrel
