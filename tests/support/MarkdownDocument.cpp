#include "MarkdownDocument.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

const QString fence = u"```"_s;

QString withoutCode(QString line)
{
    static const QRegularExpression code(u"`[^`]*`"_s);
    return line.remove(code);
}

/// The text of a heading as it is shown.
QString shownText(QString heading)
{
    static const QRegularExpression link(u"\\[([^\\]]*)\\]\\([^)]*\\)"_s);
    return heading.replace(link, u"\\1"_s).trimmed();
}

QString anchorOf(const QString &heading)
{
    static const QRegularExpression dropped(u"[^\\w\\- ]"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    return shownText(heading).toLower().remove(dropped).replace(u' ', u'-');
}

} // namespace

MarkdownDocument::MarkdownDocument(const QString &text)
{
    qsizetype number = 0;
    for (const QString &line : text.split(u'\n'))
        readLine({.number = ++number, .text = line});
}

void MarkdownDocument::readLine(const Line &line)
{
    if (line.text.trimmed().startsWith(fence)) {
        m_isInCode = !m_isInCode;
        m_isInShell = m_isInCode && line.text.trimmed() == fence + u"sh"_s;
        return;
    }
    if (m_isInCode) {
        readCode(line);
        return;
    }
    static const QRegularExpression heading(u"^#{1,6} (.*)$"_s);
    if (const auto match = heading.match(line.text); match.hasMatch())
        addHeading(match.captured(1));
    static const QRegularExpression link(u"\\]\\(([^)\\s]*)[^)]*\\)"_s);
    for (const auto &match : link.globalMatch(withoutCode(line.text)))
        m_links.append({.number = line.number, .text = match.captured(1)});
}

void MarkdownDocument::readCode(const Line &line)
{
    static const QRegularExpression comment(u"(^|\\s)#.*$"_s);
    const QString command = QString(line.text).remove(comment).trimmed();
    if (m_isInShell && !command.isEmpty())
        m_commands.append({.number = line.number, .text = command});
}

void MarkdownDocument::addHeading(const QString &heading)
{
    const QString anchor = anchorOf(heading);
    QString unique = anchor;
    for (int count = 1; m_anchors.contains(unique); ++count)
        unique = anchor + u'-' + QString::number(count);
    m_anchors.append(unique);
}

QStringList markdownFiles(const QString &sourceDir)
{
    const QDir root(sourceDir);
    QStringList files = root.entryList({u"*.md"_s}, QDir::Files);
    for (const QString &folder : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (folder == u"build"_s)
            continue;
        QDirIterator found(root.filePath(folder), {u"*.md"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (found.hasNext())
            files += root.relativeFilePath(found.next());
    }
    files.sort();
    return files;
}

} // namespace ostrel::test
