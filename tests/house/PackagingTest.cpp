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

} // namespace

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
