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

    /// Null if there is none that can be read. Doesn't block if its file is a pipe or a device. A
    /// file under the name that earlier versions gave it is renamed.
    [[nodiscard]] QImage read(const QString &domain) const;
    /// Replaces the icon of @p domain, completely or not at all; does nothing if that fails.
    /// Creates the folder if it is missing.
    void write(const QString &domain, const QImage &icon) const;

    /// The name of the file for @p domain: the domain itself and ".png". Slashes and null
    /// characters, which no file system allows, are percent-encoded; if the name would be too long,
    /// it is a hash of the domain. Nullopt for the empty domain.
    [[nodiscard]] static std::optional<QString> fileName(const QString &domain);

private:
    [[nodiscard]] std::optional<QString> filePath(const QString &domain) const;
    void renameFormer(const QString &domain, const QString &path) const;

    QString m_path;
};

} // namespace ostrel
