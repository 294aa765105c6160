#include "MarkdownDocument.h"
#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;

namespace ostrel::test {

namespace {

QDir sourceDir()
{
    return {u"" OSTREL_SOURCE_DIR ""_s};
}

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

MarkdownDocument documentAt(const QString &path)
{
    return MarkdownDocument(contentOf(path));
}

bool isElsewhere(const QString &link)
{
    static const QRegularExpression scheme(u"^[a-z]+:"_s);
    return link.contains(scheme);
}

/// Whether @p link, of the Markdown file at @p path, leads to a file, and to a heading if it names
/// one.
bool leadsSomewhere(const QString &link, const QString &path)
{
    const QString file = link.section(u'#', 0, 0);
    const QString anchor = link.section(u'#', 1);
    const QString target = file.isEmpty() ? path : QFileInfo(path).dir().filePath(file);
    return QFileInfo::exists(target) &&
           (!link.contains(u'#') || documentAt(target).anchors().contains(anchor));
}

/// The dead links of the Markdown file at @p path, as "line: link".
QStringList deadLinksIn(const QString &path)
{
    const MarkdownDocument document = documentAt(path);
    QStringList dead;
    for (const auto &link : document.links()) {
        if (!isElsewhere(link.text) && !leadsSomewhere(link.text, path))
            dead += u"%1: %2"_s.arg(QString::number(link.number), link.text);
    }
    return dead;
}

QStringList textsOf(const QList<MarkdownDocument::Line> &lines)
{
    QStringList texts;
    for (const auto &line : lines)
        texts += line.text;
    return texts;
}

} // namespace

TEST(MarkdownTest, LinksAndPicturesAreFoundButNoneInCode)
{
    const MarkdownDocument document(u"See [one](a.md#b) and ![two](c.png \"A title\").\n"
                                    "`[no](x.md)`\n```sh\n[no](y.md)\n```\n[three](../d/)\n"_s);
    EXPECT_EQ(textsOf(document.links()), QStringList({u"a.md#b"_s, u"c.png"_s, u"../d/"_s}));
    EXPECT_EQ(document.links().last().number, 6);
}

TEST(MarkdownTest, HeadingsHaveAnchorsAndRepeatedOnesNumbers)
{
    const MarkdownDocument document(
        u"# Two words\n## `code`: what's up?\n### A [link](x.md)\n# Two words\n```sh\n# no\n```\n"_s);
    EXPECT_EQ(document.anchors(),
              QStringList({u"two-words"_s, u"code-whats-up"_s, u"a-link"_s, u"two-words-1"_s}));
}

TEST(MarkdownTest, CommandsAreThoseOfShellBlocksWithoutComments)
{
    const MarkdownDocument document(
        u"```sh\nostrel status   # all of them\n\n# nothing\nostrel list | grep '#1'\n```\n"
        "```json\n{}\n```\n"_s);
    EXPECT_EQ(textsOf(document.commands()),
              QStringList({u"ostrel status"_s, u"ostrel list | grep '#1'"_s}));
}

TEST(MarkdownTest, EveryLinkLeadsToAFileAndAHeading)
{
    const QStringList files = markdownFiles(sourceDir().path());
    EXPECT_GT(files.size(), 10);
    for (const QString &file : files)
        EXPECT_THAT(deadLinksIn(sourceDir().filePath(file)), IsEmpty()) << qPrintable(file);
}

TEST(MarkdownTest, EveryPictureOfTheDocumentsIsShownAndMadeByTheScript)
{
    QStringList shown;
    for (const QString &file : markdownFiles(sourceDir().path())) {
        const QString path = sourceDir().filePath(file);
        const MarkdownDocument document = documentAt(path);
        for (const auto &link : document.links())
            shown += QDir::cleanPath(QFileInfo(path).dir().filePath(link.text));
    }
    const QString script = contentOf(sourceDir().filePath(u"scripts/pictures"_s));
    for (const QString &folder : {u""_s, u"guide/"_s}) {
        const QDir pictures(sourceDir().filePath(u"docs/"_s + folder));
        for (const QString &picture : pictures.entryList({u"*.png"_s}, QDir::Files)) {
            EXPECT_TRUE(shown.contains(pictures.filePath(picture))) << qPrintable(picture);
            const QString name = folder + QFileInfo(picture).baseName();
            EXPECT_TRUE(script.contains(u'\n' + name + u' ')) << qPrintable(name);
        }
    }
}

} // namespace ostrel::test
