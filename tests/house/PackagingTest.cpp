#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString contentOf(const QString &path)
{
    QFile file(u"" OSTREL_SOURCE_DIR "/"_s + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

/// What @p pattern captures in @p text.
QSet<QString> captured(const QString &pattern, const QString &text)
{
    QSet<QString> names;
    for (const auto &match : QRegularExpression(pattern).globalMatch(text))
        names.insert(match.captured(1));
    return names;
}

/// The long options, without their dashes, that are written in full in @p text.
QSet<QString> optionsIn(const QString &text)
{
    return captured(u"(?<![\\w-])--([a-z][a-z-]+)"_s, text);
}

/// The options of all commands.
QSet<QString> options()
{
    QSet<QString> names;
    const QDir sources(u"" OSTREL_SOURCE_DIR "/src/cli"_s);
    for (const QString &name : sources.entryList({u"*.cpp"_s}))
        names += optionsIn(contentOf(u"src/cli/"_s + name));
    EXPECT_GT(names.size(), 10);
    return names;
}

/// The commands of the table.
QSet<QString> commands()
{
    QSet<QString> names;
    const QDir sources(u"" OSTREL_SOURCE_DIR "/src/cli"_s);
    for (const QString &name : sources.entryList({u"*Arguments.cpp"_s}))
        names += captured(u"\\.name = u\"([a-z-]+)\"_s"_s, contentOf(u"src/cli/"_s + name));
    EXPECT_GT(names.size(), 5);
    return names + QSet<QString>{u"help"_s};
}

} // namespace

TEST(PackagingTest, TheManualPageExplainsEveryCommand)
{
    EXPECT_EQ(
        captured(u"\\n\\.SS ([a-z-]+)"_s, contentOf(u"packaging/ostrel.1.in"_s).remove(u'\\')),
        commands());
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
    EXPECT_EQ(optionsIn(contentOf(u"packaging/ostrel.1.in"_s).remove(u'\\')), options());
}

TEST(PackagingTest, TheShellsCompleteEveryOption)
{
    EXPECT_EQ(optionsIn(contentOf(u"packaging/completions/ostrel.bash"_s)), options());
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

} // namespace ostrel::test
