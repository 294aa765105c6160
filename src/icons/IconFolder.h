#pragma once

#include <QImage>
#include <QString>

#include <optional>

namespace ostrel {

/// The icons on disk: one PNG file per domain. Only the user can read the folder and its files.
/// Any thread.
class IconFolder
{
public:
    /// Makes the folder at @p path, and those above it, where they are missing; a failure shows
    /// only in that nothing is kept.
    explicit IconFolder(QString path);

    /// Null where there is none that can be read.
    [[nodiscard]] QImage read(const QString &domain) const;
    /// Replaces the icon of @p domain, whole or not at all; does nothing where that fails.
    void write(const QString &domain, const QImage &icon) const;

    /// The name of the file for @p domain: the domain itself and ".png". What could lead out of the
    /// folder, hide the file or upset a file system is percent-encoded. Nothing for a domain whose
    /// file name would be too long.
    [[nodiscard]] static std::optional<QString> fileName(const QString &domain);

private:
    [[nodiscard]] std::optional<QString> filePath(const QString &domain) const;

    QString m_path;
};

} // namespace ostrel
