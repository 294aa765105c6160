#include "CommandLine.h"
#include "LongOptions.h"
#include "Printers.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QtEndian>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString sourcePath(const QString &path)
{
    return u"" OSTREL_SOURCE_DIR "/"_s + path;
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

QString contentOf(const QString &path)
{
    return QString::fromUtf8(bytesOf(sourcePath(path)));
}

using Size = std::pair<quint32, quint32>; ///< Width and height in pixels.

/// The size of a PNG picture, which its header holds.
Size sizeOf(const QString &path)
{
    constexpr auto place = 16;
    const QByteArray numbers = bytesOf(sourcePath(path)).mid(place, 2 * sizeof(quint32));
    return {qFromBigEndian<quint32>(numbers.constData()),
            qFromBigEndian<quint32>(numbers.constData() + sizeof(quint32))};
}

/// What @p pattern captures in @p text.
QSet<QString> captured(const QString &pattern, const QString &text)
{
    QSet<QString> names;
    for (const auto &match : QRegularExpression(pattern).globalMatch(text))
        names.insert(match.captured(1));
    return names;
}

/// The help on @p command, or of the whole program if that is empty.
QString helpOn(const QString &command)
{
    return std::get<AnswerInvocation>(
               parseCommandLine(
                   {u"ostrel"_s, command.isEmpty() ? u"--help"_s : u"help"_s, command}))
        .text;
}

/// The commands of the table.
QSet<QString> commands()
{
    QSet<QString> names = {u"help"_s};
    for (const Command &command : allCommands())
        names.insert(command.name);
    return names;
}

/// The options of @p command that not every command has.
QSet<QString> ownOptions(const Command &command)
{
    return longOptionsIn(command.help) - QSet<QString>{u"data-dir"_s, u"help"_s};
}

/// The options of all commands and of the program itself.
QSet<QString> options()
{
    QSet<QString> names = longOptionsIn(helpOn({}));
    for (const Command &command : allCommands())
        names += longOptionsIn(helpOn(command.name));
    return names;
}

QString manualPage()
{
    return contentOf(u"packaging/ostrel.1.in"_s).remove(u'\\');
}

/// What the manual page says of @p command.
QString manualOn(const QString &command)
{
    const auto section = u"\\n\\.SS %1\\n(.*?)(?=\\n\\.S[SH] )"_s.arg(command);
    return QRegularExpression(section, QRegularExpression::DotMatchesEverythingOption)
        .match(manualPage())
        .captured(1);
}

/// The options of which the manual page says at @p command what they do; those that every command
/// has are explained once for all of them.
QSet<QString> manualOptions(const QString &command)
{
    QSet<QString> names = captured(u"\\n\\.TP\\n\\.B[RI]? ([^\\n]+)"_s, u'\n' + manualOn(command));
    names = longOptionsIn(QStringList(names.begin(), names.end()).join(u' '));
    if (command == u"edit"_s) // It begins by naming those of `add`.
        names += manualOptions(u"add"_s);
    return names;
}

} // namespace

TEST(PackagingTest, TheHelpExplainsEveryOption)
{
    QSet<QString> parsed = {u"help"_s, u"version"_s};
    const QDir sources(sourcePath(u"src/cli"_s));
    for (const QString &name : sources.entryList({u"*.cpp"_s}))
        parsed += captured(u"\\{u\"([a-z-]+)\"_s, \\{\\}"_s, contentOf(u"src/cli/"_s + name));
    EXPECT_GT(parsed.size(), 10);
    EXPECT_EQ(parsed, options());
}

TEST(PackagingTest, TheManualPageExplainsEveryCommand)
{
    EXPECT_EQ(captured(u"\\n\\.SS ([a-z-]+)"_s, manualPage()), commands());
}

TEST(PackagingTest, TheShellsCompleteEveryCommand)
{
    const QString bash = contentOf(u"packaging/completions/ostrel.bash"_s);
    const auto words = captured(u"commands='(.*)'"_s, bash).values().value(0).split(u' ');
    EXPECT_EQ(QSet<QString>(words.begin(), words.end()), commands());
    const QString zsh = contentOf(u"packaging/completions/_ostrel"_s);
    EXPECT_EQ(captured(u"\\n    '([a-z-]+):"_s, zsh), commands());
    const QString fish = contentOf(u"packaging/completions/ostrel.fish"_s);
    EXPECT_EQ(captured(u"\"\\$none\" -a ([a-z-]+)"_s, fish), commands());
}

TEST(PackagingTest, TheManualPageExplainsEveryOption)
{
    EXPECT_EQ(longOptionsIn(manualPage()), options());
}

TEST(PackagingTest, TheManualPageExplainsTheOptionsOfACommandWithIt)
{
    for (const Command &command : allCommands())
        EXPECT_EQ(manualOptions(command.name), ownOptions(command)) << qPrintable(command.name);
}

TEST(PackagingTest, TheShellsCompleteEveryOption)
{
    EXPECT_EQ(longOptionsIn(contentOf(u"packaging/completions/ostrel.bash"_s)), options());
    const QString zsh = contentOf(u"packaging/completions/_ostrel"_s);
    EXPECT_EQ(captured(u"[')},]--([a-z][a-z-]+)"_s, zsh), options());
    const QString fish = contentOf(u"packaging/completions/ostrel.fish"_s);
    EXPECT_EQ(captured(u"complete[^\\n]* -l ([a-z][a-z-]+)"_s, fish), options());
}

TEST(PackagingTest, TheDesktopFileNamesTheIconAndTheProgramsOptions)
{
    const auto id = u"" OSTREL_APPLICATION_ID ""_s;
    const QString entry = contentOf(u"packaging/"_s + id + u".desktop"_s);
    EXPECT_EQ(captured(u"\\nIcon=(.+)"_s, entry), QSet<QString>{id});
    EXPECT_TRUE(options().contains(captured(u"Exec=ostrel --(.+)"_s, entry)));
}

/// Its homepage serves them from docs/, where scripts/pictures puts them.
TEST(PackagingTest, TheMetainfosScreenshotsAreThePicturesOfTheDocuments)
{
    const QString scripts = contentOf(u"scripts/pictures"_s);
    const QString metainfo =
        contentOf(u"packaging/"_s + u"" OSTREL_APPLICATION_ID ""_s + u".metainfo.xml.in"_s);
    static const QRegularExpression image(
        u"<image type=\"source\" width=\"(\\d+)\" height=\"(\\d+)\">"
        "@OSTREL_HOMEPAGE@/screenshots/(\\w+)\\.png</image>"_s);
    qsizetype count = 0;
    for (const auto &match : image.globalMatch(metainfo)) {
        const QString name = match.captured(3);
        EXPECT_EQ(sizeOf(u"docs/%1.png"_s.arg(name)),
                  (Size{match.captured(1).toUInt(), match.captured(2).toUInt()}))
            << qPrintable(name);
        EXPECT_TRUE(scripts.contains(QRegularExpression(u"\\n%1 "_s.arg(name))))
            << qPrintable(name);
        ++count;
    }
    EXPECT_EQ(count, metainfo.count(u"<image"_s));
    EXPECT_GT(count, 0);
}

TEST(PackagingTest, ThePlaceholderOfTheHostStandsInOnePlace)
{
    const QString placeholder = u"ostrel."_s + u"example"_s;
    for (const char *name : {"src", "tests", "tools", "packaging", "docs", "scripts", "cmake"}) {
        QDirIterator files(sourcePath(QString::fromLatin1(name)), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            EXPECT_FALSE(bytesOf(files.next()).contains(placeholder.toLatin1()))
                << qPrintable(files.filePath());
    }
    EXPECT_EQ(contentOf(u"CMakeLists.txt"_s).count(placeholder), 2) << "a homepage and a mailbox";
}

} // namespace ostrel::test
