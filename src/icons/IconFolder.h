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
    /// After so long a temporary file is a crash's.
    static constexpr std::chrono::hours leftoverAge{1};

    explicit IconFolder(const QString &path);

    /// Makes the folder, and those above it, where they are missing; takes it away from others;
    /// removes the temporary files that a crash has left in it. A failure shows only in that
    /// nothing is kept.
    void prepare() const;

    /// Null where there is none that can be read. Waits for nobody where a pipe or a device has
    /// its file's name. A file under the name that earlier versions gave it is renamed.
    [[nodiscard]] QImage read(const QString &domain) const;
    /// Replaces the icon of @p domain, whole or not at all; does nothing where that fails. Makes
    /// the folder where it is missing.
    void write(const QString &domain, const QImage &icon) const;

    /// The name of the file for @p domain: the domain itself and ".png". "/" and null characters,
    /// of which no file system has names, are percent-encoded; a hash stands for a domain whose
    /// file name would be too long. Nothing for the empty domain.
    [[nodiscard]] static std::optional<QString> fileName(const QString &domain);

private:
    [[nodiscard]] std::optional<QString> filePath(const QString &domain) const;
    void renameFormer(const QString &domain, const QString &path) const;

    QString m_path;
};

} // namespace ostrel
