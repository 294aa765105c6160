#pragma once

#include <QImage>
#include <QString>

#include <chrono>
#include <optional>

namespace ostrel {

/// The icons on disk: one PNG file per domain. Only the user can read the folder and its files.
/// Any thread.
class IconFolder
{
public:
    /// A temporary file older than this was left by a crash.
    static constexpr std::chrono::hours leftoverAge{1};

    explicit IconFolder(const QString &path);

    /// Creates the folder and its parents if they are missing; removes other users' rights to it;
    /// removes the temporary files that a crash has left in it. If it fails, nothing is kept, but
    /// no error is reported.
    void prepare() const;

    /// Null if there is none that can be read. Doesn't block if its file is a pipe or a device.
    [[nodiscard]] QImage read(const QString &domain) const;
    /// Replaces the icon of @p domain, completely or not at all; does nothing if that fails.
    /// Creates the folder if it is missing.
    void write(const QString &domain, const QImage &icon) const;

    /// The name of the file for @p domain: the domain itself and ".png". Characters that could lead
    /// out of the folder, hide the file or be invalid in a file system are percent-encoded. Nullopt
    /// for a domain whose file name would be too long.
    [[nodiscard]] static std::optional<QString> fileName(const QString &domain);

private:
    [[nodiscard]] std::optional<QString> filePath(const QString &domain) const;

    QString m_path;
};

} // namespace ostrel
