#include "FreedesktopLoginItem.h"

#include "ApplicationId.h"
#include "AtomicFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

constexpr qint64 maxEntrySize = 65'536;

using Keys = QHash<QString, QString>;

/// The entry that is named after @p id.
QString entryFile(const QString &id)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/autostart/"_s + id + u".desktop"_s;
}

/// @p text as the value of a key of type string.
QString escapedValue(QString text)
{
    return text.replace(u'\\', u"\\\\"_s)
        .replace(u'\n', u"\\n"_s)
        .replace(u'\t', u"\\t"_s)
        .replace(u'\r', u"\\r"_s);
}

QString unescapedValue(const QString &value)
{
    static const QHash<QChar, QChar> meanings = {
        {u's', u' '}, {u'n', u'\n'}, {u't', u'\t'}, {u'r', u'\r'}, {u'\\', u'\\'}};
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isEscape = value.at(i) == u'\\' && i + 1 < value.size();
        text += isEscape ? meanings.value(value.at(i + 1), value.at(i + 1)) : value.at(i);
        i += isEscape ? 1 : 0;
    }
    return text;
}

/// Whether @p c may be in an argument of Exec without quotes.
bool isUnreserved(QChar c)
{
    return !QStringView(u" \t\n\"'\\><~|&;$*?#()`").contains(c);
}

/// @p text as one argument of Exec.
QString quotedArgument(QString text)
{
    text.replace(u'%', u"%%"_s);
    if (std::ranges::all_of(text, isUnreserved))
        return text;
    for (const QChar special : {u'\\', u'"', u'`', u'$'})
        text.replace(special, QString(u'\\') + special);
    return u'"' + text + u'"';
}

/// The text between the quotes at the beginning of @p command.
QString quotedStart(QStringView command)
{
    QString text;
    for (qsizetype i = 1; i < command.size() && command.at(i) != u'"'; ++i) {
        if (command.at(i) == u'\\' && i + 1 < command.size())
            ++i;
        text += command.at(i);
    }
    return text;
}

/// The program that @p command, the value of an Exec key, starts.
QString programOf(const QString &command)
{
    const bool isQuoted = command.startsWith(u'"');
    QString program = isQuoted ? quotedStart(command) : command.section(u' ', 0, 0);
    return program.replace(u"%%"_s, u"%"_s);
}

/// The keys of @p text's group [Desktop Entry], which comes first.
Keys desktopEntryKeys(const QString &text)
{
    Keys keys;
    bool isInGroup = false;
    for (const QString &line : text.split(u'\n')) {
        if (line.startsWith(u'['))
            isInGroup = line.trimmed() == u"[Desktop Entry]"_s;
        else if (isInGroup && line.contains(u'='))
            keys.insert(line.section(u'=', 0, 0).trimmed(),
                        unescapedValue(line.section(u'=', 1).trimmed()));
    }
    return keys;
}

/// The keys of the entry at @p path; nullopt if none can be read.
std::optional<Keys> readEntry(const QString &path)
{
    // Opening a pipe would wait for its writer.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return desktopEntryKeys(QString::fromUtf8(file.read(maxEntrySize)));
}

bool isDisabled(const Keys &entry)
{
    return entry.value(u"Hidden"_s) == u"true"_s ||
           entry.value(u"X-GNOME-Autostart-enabled"_s) == u"false"_s;
}

/// The file of the program @p name, with all links resolved; empty if there is none.
QString resolvedProgram(const QString &name)
{
    return QFileInfo(QStandardPaths::findExecutable(name)).canonicalFilePath();
}

/// Whether anything but a folder is at @p path, also a link that leads nowhere.
bool isEntry(const QString &path)
{
    const QFileInfo place(path);
    return place.isSymLink() || (place.exists() && !place.isDir());
}

bool removeEntry(const QString &path)
{
    return QFile::remove(path) || !QFile::exists(path);
}

bool isSameProgram(const QString &name, const QString &executable)
{
    const QString program = resolvedProgram(name);
    return !program.isEmpty() && program == QFileInfo(executable).canonicalFilePath();
}

} // namespace

FreedesktopLoginItem::FreedesktopLoginItem()
    : FreedesktopLoginItem(QCoreApplication::applicationFilePath())
{
}

FreedesktopLoginItem::FreedesktopLoginItem(const QString &executable)
    : m_executable(executable)
    , m_file(entryFile(applicationId()))
    , m_formerFile(entryFile(u"ostrel"_s))
{
}

bool FreedesktopLoginItem::registerItem()
{
    takeFormerEntryOver();
    const AtomicFile file(m_file);
    file.removeLeftovers();
    if (isSettled())
        return true;
    const QFileInfo place(m_file);
    // A link to a device, with which users disable an entry, is kept.
    if ((place.exists() && !place.isFile()) || !QDir().mkpath(place.path()))
        return false;
    const auto fill = [this](ContentWriter &writer) {
        writer.append(entry().toStdString());
        return true;
    };
    return file.write(fill, AtomicFile::Flush::none);
}

bool FreedesktopLoginItem::unregisterItem()
{
    const bool isFormerGone = removeEntry(m_formerFile);
    return removeEntry(m_file) && isFormerGone;
}

void FreedesktopLoginItem::takeFormerEntryOver() const
{
    if (!isEntry(m_formerFile))
        return;
    if (isEntry(m_file))
        QFile::remove(m_formerFile);
    else // Unlike QFile's, it keeps links and never copies.
        std::rename(QFile::encodeName(m_formerFile).constData(),
                    QFile::encodeName(m_file).constData());
}

/// The installed program is named without its path, so that the entry survives moving it.
QString FreedesktopLoginItem::command() const
{
    const auto name = u"ostrel"_s;
    return isSameProgram(name, m_executable) ? name : m_executable;
}

QByteArray FreedesktopLoginItem::entry() const
{
    const QString lines = u"[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Ostrel\n"
                          "Exec=%1\n"
                          "TryExec=%2\n"
                          "Icon=%3\n"
                          "Terminal=false\n"
                          "X-GNOME-Autostart-Delay=2\n"
                          "X-KDE-autostart-after=panel\n"
                          "X-LXQt-Need-Tray=true\n"_s;
    return lines
        .arg(escapedValue(quotedArgument(command())), escapedValue(command()), applicationId())
        .toUtf8();
}

bool FreedesktopLoginItem::isSettled() const
{
    const auto keys = readEntry(m_file);
    return keys &&
           (isDisabled(*keys) || isSameProgram(programOf(keys->value(u"Exec"_s)), m_executable));
}

} // namespace ostrel
