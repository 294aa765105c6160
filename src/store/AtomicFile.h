#pragma once

#include "ContentWriter.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace ostrel {

/// A file that is only ever replaced as a whole, so that nobody reads it half-written.
///
/// New content goes to a temporary file beside it, which then is moved over it: its name and
/// ".tmp", or, while something that isn't such a file has that name, with "-2", "-3", … up to "-16"
/// at its end. A path that is a symbolic link is followed: the link stays, what it names is
/// replaced. Two programs must not write the same file. Where a function gives false for a failure,
/// errno says which.
class AtomicFile
{
public:
    enum class Flush {
        none,
        beforeReplacing, ///< The new content is on the disk before it replaces the old.
    };

    /// Writes the new content; false where it could not be got together.
    using Fill = std::function<bool(ContentWriter &)>;
    /// Waits until the disk has what was written to an open file; false, with errno, if it hasn't.
    using Sync = std::function<bool(const FileDescriptor &)>;

    /// @p sync is what Flush::beforeReplacing does.
    explicit AtomicFile(const QString &path, Sync sync = waitForTheDisk);

    /// fsync(2).
    static bool waitForTheDisk(const FileDescriptor &file);

    /// The content of now; that of nothing where there is no file or it can't be read.
    [[nodiscard]] FileSnapshot snapshot() const;
    /// The whole content; nothing if there is no file, it can't be read or is larger than
    /// maxStoredFileSize. Gives @p snapshot, if there is one, what was read.
    [[nodiscard]] std::optional<QByteArray> read(FileSnapshot *snapshot = nullptr) const;
    /// Whether there is anything at the path; also if that can't be told.
    [[nodiscard]] bool exists() const;
    /// Whether the content is that of @p snapshot; one of nothing stands for that there is no file.
    [[nodiscard]] bool holds(const FileSnapshot &snapshot) const;

    /// Replaces the content by what @p fill writes; the file is its user's alone (0600). On false,
    /// the file is as it was and the temporary one is gone. On true, gives @p snapshot, where there
    /// is one, the new content.
    bool write(const Fill &fill, Flush flush, FileSnapshot *snapshot = nullptr) const;

    /// As write(), but keeps what the file held until then beside it, under its name, "." and
    /// @p suffix; where that is taken, with "-2", "-3", … at its end. Keeps it only once the new
    /// content is written whole. Never replaces what it could not keep.
    bool writeKeepingOld(const Fill &fill, Flush flush, std::string_view suffix,
                         FileSnapshot *snapshot = nullptr) const;

    /// Has the disk take the content of now, and its name, by @p sync. Any thread.
    bool flush(const Sync &sync) const;

    /// Removes the temporary files that a crash has left: those of ordinary files that are this
    /// user's.
    void removeLeftovers() const;

private:
    class Temporary;

    [[nodiscard]] bool fillIn(Temporary &temporary, const Fill &fill, Flush flush) const;
    [[nodiscard]] bool keep(std::string_view suffix) const;

    std::string m_path; ///< Past all symbolic links.
    Sync m_sync;
};

} // namespace ostrel
