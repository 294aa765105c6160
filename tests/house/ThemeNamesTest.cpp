#include "Printers.h"

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// The theme has what several views share. A name that only one view uses belongs in that view.

namespace ostrel::test {

namespace {

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString themePath()
{
    return u"" OSTREL_SOURCE_DIR "/src/theme/Theme.qml"_s;
}

QStringList matches(const QRegularExpression &pattern, const QString &text)
{
    QStringList found;
    for (auto match = pattern.globalMatch(text); match.hasNext();)
        found += match.next().captured(1);
    return found;
}

QStringList themeNames()
{
    static const QRegularExpression declaration(
        u"^    (?:(?:readonly )?property \\w+|function) (\\w+)"_s,
        QRegularExpression::MultilineOption);
    return matches(declaration, contentOf(themePath()));
}

/// The views that use each name, the gallery's among them.
QHash<QString, QSet<QString>> usersOfThemeNames()
{
    static const QRegularExpression use(u"\\bTheme\\.(\\w+)"_s);
    QHash<QString, QSet<QString>> users;
    for (const QString &folder : {u"/src"_s, u"/tools"_s}) {
        QDirIterator files(u"" OSTREL_SOURCE_DIR ""_s + folder, {u"*.qml"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            for (const QString &name : matches(use, contentOf(path)))
                users[name].insert(path);
        }
    }
    return users;
}

} // namespace

TEST(ThemeNamesTest, EachIsUsedByAtLeastTwoFiles)
{
    const QStringList names = themeNames();
    ASSERT_GT(names.size(), 50) << "the declarations are no longer found";
    const auto users = usersOfThemeNames();
    for (const QString &name : names)
        EXPECT_GE(users.value(name).size(), 2) << qPrintable(name);
}

} // namespace ostrel::test
