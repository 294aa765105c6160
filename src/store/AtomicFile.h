#pragma once

#include "ContentWriter.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace ostrel {

/// A file that is only ever replaced as a whole, so that it is never read half-written.
///
/// New content goes to a temporary file beside it, which is then renamed over it. The temporary
/// file has its name and ".tmp", or, if something else than such a file has that name, with "-2",
/// "-3", … up to "-16" appended. A path that is a symbolic link is followed: the link stays, its
/// target is replaced. Two programs must not write the same file. If a function returns false
/// because of a failure, errno has the reason.
class AtomicFile
{
public:
    enum class Flush {
        none,            ///< Left to the file system; many flush whatever replaces a file.
        beforeReplacing, ///< The new content is on the disk before it replaces the old.
        /// The file system isn't made to flush: what is replaced soon again never reaches the disk.
        /// Until the file is flushed, a power cut may leave it unfinished: empty, cut off, or with
        /// zeros. The same as none where two files can't exchange their names.
        avoided,
    };

    /// Who can access a file that was written.
    enum class Access {
        user, ///< The user alone (0600).
        /// Whoever the user's umask lets access a new file. What has the temporary name is then
        /// another file of the user's, and is left alone.
        usual,
    };

    /// Writes the new content; false if it couldn't be produced.
    using Fill = std::function<bool(ContentWriter &)>;
    /// Waits until the data written to an open file is on the disk; false, with errno, if that
    /// fails.
    using Sync = std::function<bool(const FileDescriptor &)>;

    /// Flush::beforeReplacing calls @p sync.
    explicit AtomicFile(const QString &path, Sync sync = waitForTheDisk,
                        Access access = Access::user);

    /// Calls fsync(2).
    static bool waitForTheDisk(const FileDescriptor &file);

    /// A snapshot of the current content; of no file if there is none or it can't be read.
    [[nodiscard]] FileSnapshot snapshot() const;
    /// The whole content; nullopt if there is no file, it can't be read or is larger than
    /// maxStoredFileSize. Sets @p snapshot, unless it is null, to the content that was read.
    [[nodiscard]] std::optional<QByteArray> read(FileSnapshot *snapshot = nullptr) const;
    /// Whether there is anything at the path; also true if that can't be determined.
    [[nodiscard]] bool exists() const;
    /// Whether the content is still that of @p snapshot; if that is of no file, whether there is
    /// still none.
    [[nodiscard]] bool holds(const FileSnapshot &snapshot) const;

    /// Replaces the content with what @p fill writes. If this returns false, the file is unchanged
    /// and the temporary one is removed. If it returns true, it sets @p snapshot, unless that is
    /// null, to the new content.
    bool write(const Fill &fill, Flush flush, FileSnapshot *snapshot = nullptr) const;

    /// Like write(), but only if there is nothing at the path; otherwise false, with EEXIST.
    bool writeNew(const Fill &fill, Flush flush) const;

    /// Like write(), but keeps the old content beside the file, under the file's name, "." and @p
    /// suffix, with "-2", "-3", … appended if that name is taken. Keeps it only once the new
    /// content is completely written. Doesn't replace the file if the old content couldn't be kept.
    bool writeKeepingOld(const Fill &fill, Flush flush, std::string_view suffix,
                         FileSnapshot *snapshot = nullptr) const;

    /// Flushes the current content, and its name, to the disk with @p sync. Any thread.
    bool flush(const Sync &sync) const;

    /// Removes temporary files left by a crash, if they are ordinary files owned by this user.
    void removeLeftovers() const;

private:
    class Temporary;

    [[nodiscard]] bool fillIn(Temporary &temporary, const Fill &fill, Flush flush) const;
    [[nodiscard]] bool keep(std::string_view suffix) const;

    std::string m_path; ///< After following all symbolic links.
    Sync m_sync;
    Access m_access;
};

} // namespace ostrel
