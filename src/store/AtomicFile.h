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
/// New content goes to a temporary file beside it (its name and ".tmp"), which then is moved over
/// it. A path that is a symbolic link is followed: the link stays, what it names is replaced.
/// Two programs must not write the same file.
class AtomicFile
{
public:
    enum class Flush {
        none,
        beforeReplacing, ///< The new content is on the disk before it replaces the old.
    };

    /// Writes the new content; false where it could not be got together.
    using Fill = std::function<bool(ContentWriter &)>;

    explicit AtomicFile(const QString &path);

    /// The content of now; that of nothing where there is no file or it can't be read.
    [[nodiscard]] FileSnapshot snapshot() const;
    /// The whole content; nothing if there is no file, it can't be read or is larger than
    /// maxStoredFileSize. Gives @p snapshot, if there is one, what was read.
    [[nodiscard]] std::optional<QByteArray> read(FileSnapshot *snapshot = nullptr) const;
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

    /// Removes the temporary file that a crash has left.
    void removeLeftover() const;

private:
    [[nodiscard]] bool writeTemporary(const Fill &fill, Flush flush) const;
    [[nodiscard]] bool replace(FileSnapshot *snapshot) const;
    [[nodiscard]] bool keep(std::string_view suffix) const;

    std::string m_path; ///< Past all symbolic links.
    std::string m_temporaryPath;
};

} // namespace ostrel
