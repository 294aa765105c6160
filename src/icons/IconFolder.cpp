#include "IconFolder.h"

#include "FileDescriptor.h"
#include "PictureDecoder.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QUrl>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// In bytes: the limit of every file system that we know, less QSaveFile's suffix (".Kq3xZa").
constexpr qsizetype longestFileName = 255 - 7;
/// More than the largest picture takes as PNG.
constexpr qint64 largestIconFile = qint64(32) * 1024 * 1024;
const QLatin1String iconSuffix(".png");
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

/// Whether @p name is like those of QSaveFile's temporary files for an icon.
bool isTemporaryName(const QString &name)
{
    static const QRegularExpression pattern(uR"(^.+\.png\.[A-Za-z]{6}$)"_s,
                                            QRegularExpression::DotMatchesEverythingOption);
    return pattern.match(name).hasMatch();
}

bool isLeftover(const QFileInfo &file, const QDateTime &newest)
{
    return isTemporaryName(file.fileName()) && file.isFile() && !file.isSymLink() &&
           file.ownerId() == ::geteuid() && file.lastModified() < newest;
}

/// Doesn't wait for the other end if it is a pipe.
FileDescriptor openForReading(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    return FileDescriptor(uninterrupted(
        [&] { return ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
}

/// The one for the domain itself is never "." or "..", for something follows it.
QString withoutForbidden(QString domain)
{
    return domain.replace(u'/', u"%2F"_s).replace(QChar(u'\0'), u"%00"_s);
}

QString hashOf(const QString &domain)
{
    const auto hash = QCryptographicHash::hash(domain.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex());
}

/// How earlier versions named the file for @p domain.
QString formerFileName(const QString &domain)
{
    QByteArray name = QUrl::toPercentEncoding(domain);
    if (name.startsWith('.'))
        name.replace(0, 1, "%2E");
    return QString::fromLatin1(name) + iconSuffix;
}

} // namespace

IconFolder::IconFolder(const QString &path)
    : m_path(QDir::cleanPath(QDir(path).absolutePath()))
{
}

void IconFolder::prepare() const
{
    makePrivateFolder(m_path);
    if (!QFileInfo(m_path).isSymLink())
        QFile::setPermissions(m_path, privateFolder);
    const auto newest =
        QDateTime::currentDateTimeUtc().addSecs(-std::chrono::seconds(leftoverAge).count());
    QDirIterator entries(m_path, QDir::Files | QDir::Hidden);
    while (entries.hasNext()) {
        entries.next();
        if (isLeftover(entries.fileInfo(), newest))
            QFile::remove(entries.filePath());
    }
}

QImage IconFolder::read(const QString &domain) const
{
    const auto path = filePath(domain);
    if (!path)
        return {};
    renameFormer(domain, *path);
    if (!QFileInfo(*path).isFile())
        return {};
    const FileDescriptor opened = openForReading(*path);
    QFile file;
    // It may have become something else since, which isn't read.
    if (!opened.isOpen() || !file.open(opened.number(), QIODevice::ReadOnly) || file.isSequential())
        return {};
    // Never asks for more than there is: QFile allocates all that it is asked for.
    return decodePicture(file.read(std::min(file.size(), largestIconFile)));
}

void IconFolder::write(const QString &domain, const QImage &icon) const
{
    const auto path = filePath(domain);
    if (!path)
        return;
    makePrivateFolder(m_path);
    QSaveFile file(*path);
    if (file.open(QIODevice::WriteOnly) && file.setPermissions(privateFile) &&
        icon.save(&file, "PNG"))
        file.commit();
}

std::optional<QString> IconFolder::fileName(const QString &domain)
{
    if (domain.isEmpty())
        return std::nullopt;
    const QString name = withoutForbidden(domain) + iconSuffix;
    return QFile::encodeName(name).size() <= longestFileName ? name : hashOf(domain) + iconSuffix;
}

std::optional<QString> IconFolder::filePath(const QString &domain) const
{
    const auto name = fileName(domain);
    if (!name)
        return std::nullopt;
    return m_path + QLatin1Char('/') + *name;
}

void IconFolder::renameFormer(const QString &domain, const QString &path) const
{
    const QString former = m_path + QLatin1Char('/') + formerFileName(domain);
    if (former != path && !QFileInfo::exists(path) && QFileInfo(former).isFile())
        QFile::rename(former, path);
}

} // namespace ostrel
