#include "IconFolder.h"

#include "PictureDecoder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace ostrel {

namespace {

/// The bytes of a file name on every file system that we know.
constexpr qsizetype longestFileName = 255;
/// More than the largest picture takes as PNG.
constexpr qint64 largestIconFile = qint64(32) * 1024 * 1024;
constexpr auto privateFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr auto privateFolder = privateFile | QFileDevice::ExeOwner;

void makePrivateFolder(const QString &path)
{
    if (QFileInfo::exists(path))
        return;
    const QString parent = QFileInfo(path).path();
    if (parent != path)
        makePrivateFolder(parent);
    QDir().mkdir(path, privateFolder);
}

} // namespace

IconFolder::IconFolder(QString path)
    : m_path(std::move(path))
{
    makePrivateFolder(QDir::cleanPath(QDir(m_path).absolutePath()));
}

QImage IconFolder::read(const QString &domain) const
{
    const auto path = filePath(domain);
    if (!path || !QFileInfo(*path).isFile())
        return {};
    QFile file(*path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // Never asks for more than there is: QFile makes room for all that it is asked for.
    return decodePicture(file.read(std::min(file.size(), largestIconFile)));
}

void IconFolder::write(const QString &domain, const QImage &icon) const
{
    const auto path = filePath(domain);
    if (!path)
        return;
    QSaveFile file(*path);
    if (file.open(QIODevice::WriteOnly) && file.setPermissions(privateFile) &&
        icon.save(&file, "PNG"))
        file.commit();
}

std::optional<QString> IconFolder::fileName(const QString &domain)
{
    QByteArray name = QUrl::toPercentEncoding(domain);
    if (name.startsWith('.'))
        name.replace(0, 1, "%2E");
    name += ".png";
    if (domain.isEmpty() || name.size() > longestFileName)
        return std::nullopt;
    return QString::fromLatin1(name);
}

std::optional<QString> IconFolder::filePath(const QString &domain) const
{
    const auto name = fileName(domain);
    if (!name)
        return std::nullopt;
    return m_path + QLatin1Char('/') + *name;
}

} // namespace ostrel
