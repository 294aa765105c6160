#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <span>
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

    explicit AtomicFile(const QString &path);

    /// The whole content; nothing where there is no file or it can't be read.
    [[nodiscard]] std::optional<QByteArray> read() const;
    [[nodiscard]] bool exists() const;

    /// Replaces the content by @p pieces, one after the other; the file is its user's alone (0600).
    /// On false, the file is as it was and the temporary one is gone.
    bool write(std::span<const std::string_view> pieces, Flush flush) const;

    /// As write(), but keeps what the file held until then beside it, under its name, "." and
    /// @p suffix; where that is taken, with "-2", "-3", … at its end. Keeps it only once the new
    /// content is written whole. Never replaces what it could not keep.
    bool writeKeepingOld(std::span<const std::string_view> pieces, Flush flush,
                         std::string_view suffix) const;

    /// Removes the temporary file that a crash has left.
    void removeLeftover() const;

private:
    [[nodiscard]] bool writeTemporary(std::span<const std::string_view> pieces, Flush flush) const;
    [[nodiscard]] bool replace() const;
    [[nodiscard]] bool keep(std::string_view suffix) const;

    std::string m_path; ///< Past all symbolic links.
    std::string m_temporaryPath;
};

} // namespace ostrel
