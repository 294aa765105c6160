#include "Printers.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

/// Which folders of src/ a file of each folder may include from, beside its own. The list is
/// docs/architecture.md's diagram.
const QHash<QString, QStringList> &allowedFolders()
{
    static const QStringList belowPlatform = {
        QStringLiteral("base"),   QStringLiteral("text"), QStringLiteral("model"),
        QStringLiteral("store"),  QStringLiteral("net"),  QStringLiteral("notify"),
        QStringLiteral("engine"),
    };
    static const QHash<QString, QStringList> folders = {
        {QStringLiteral("base"), {}},
        {QStringLiteral("text"), {}},
        {QStringLiteral("model"), {}},
        {QStringLiteral("store"), {QStringLiteral("model"), QStringLiteral("base")}},
        {QStringLiteral("net"), {}},
        {QStringLiteral("curl"), {QStringLiteral("base"), QStringLiteral("net")}},
        {QStringLiteral("notify"), {QStringLiteral("model"), QStringLiteral("text")}},
        {QStringLiteral("engine"),
         {QStringLiteral("base"), QStringLiteral("text"), QStringLiteral("model"),
          QStringLiteral("store"), QStringLiteral("net"), QStringLiteral("notify")}},
        {QStringLiteral("forms"),
         {QStringLiteral("model"), QStringLiteral("text"), QStringLiteral("store")}},
        {QStringLiteral("platform"),
         {QStringLiteral("model"), QStringLiteral("store"), QStringLiteral("notify"),
          QStringLiteral("engine"), QStringLiteral("base")}},
        {QStringLiteral("cli"), belowPlatform + QStringList{QStringLiteral("forms")}},
        {QStringLiteral("icons"),
         {QStringLiteral("base"), QStringLiteral("model"), QStringLiteral("net")}},
        {QStringLiteral("presentation"),
         {QStringLiteral("model"), QStringLiteral("text"), QStringLiteral("store")}},
        {QStringLiteral("ui"),
         belowPlatform + QStringList{QStringLiteral("forms"), QStringLiteral("icons"),
                                     QStringLiteral("platform"), QStringLiteral("presentation")}},
        {QStringLiteral("gallery"),
         belowPlatform + QStringList{QStringLiteral("forms"), QStringLiteral("icons"),
                                     QStringLiteral("platform"), QStringLiteral("presentation"),
                                     QStringLiteral("ui")}},
    };
    return folders;
}

QDir sourceDir()
{
    return {QStringLiteral(OSTREL_SOURCE_DIR "/src")};
}

QStringList sourceFiles()
{
    QStringList files;
    QDirIterator it(sourceDir().path(), {QStringLiteral("*.h"), QStringLiteral("*.cpp")},
                    QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files += sourceDir().relativeFilePath(it.next());
    files.sort();
    return files;
}

QString folderOf(const QString &file)
{
    return file.section(QLatin1Char('/'), 0, 0);
}

QString contentOf(const QString &file)
{
    QFile source(sourceDir().filePath(file));
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

/// The names in the file's #include "…" lines.
QStringList includesOf(const QString &file)
{
    static const QRegularExpression line(QStringLiteral("^#include \"([^\"]+)\""),
                                         QRegularExpression::MultilineOption);
    QStringList names;
    for (const auto &match : line.globalMatch(contentOf(file)))
        names += match.captured(1);
    return names;
}

} // namespace

TEST(LayersTest, FoldersIncludeOnlyWhatLiesBelowThem)
{
    QHash<QString, QString> folderOfHeader;
    for (const QString &file : sourceFiles())
        folderOfHeader.insert(file.section(QLatin1Char('/'), -1), folderOf(file));

    int seen = 0;
    for (const QString &file : sourceFiles()) {
        const QString folder = folderOf(file);
        if (!file.contains(QLatin1Char('/')))
            continue; // main.cpp, where all the parts meet.
        ASSERT_TRUE(allowedFolders().contains(folder)) << qPrintable(file);
        for (const QString &name : includesOf(file)) {
            const QString included = folderOfHeader.value(name);
            if (included.isEmpty() || included == folder)
                continue; // Generated, or its own folder's.
            ++seen;
            EXPECT_TRUE(allowedFolders().value(folder).contains(included))
                << qPrintable(file) << " includes " << qPrintable(name) << " of "
                << qPrintable(included);
        }
    }
    EXPECT_GT(seen, 10) << "the test no longer finds what it is to judge";
}

TEST(LayersTest, BaseNamesAreUniqueAcrossTheTree)
{
    QSet<QString> names;
    for (const QString &file : sourceFiles()) {
        const QString name = file.section(QLatin1Char('/'), -1);
        EXPECT_FALSE(names.contains(name)) << qPrintable(file);
        names.insert(name);
    }
}

TEST(LayersTest, PlatformsDifferOnlyInsideThePlatformFolder)
{
    static const QRegularExpression conditional(
        QStringLiteral("^\\s*#\\s*(if|ifdef|ifndef|elif)\\b"), QRegularExpression::MultilineOption);
    for (const QString &file : sourceFiles()) {
        if (folderOf(file) == QStringLiteral("platform"))
            continue;
        EXPECT_FALSE(conditional.match(contentOf(file)).hasMatch()) << qPrintable(file);
    }
}

// Qt's painter waits for that pool on the main thread.
TEST(LayersTest, NobodyUsesQtsThreadPool)
{
    for (const QString &file : sourceFiles())
        EXPECT_FALSE(contentOf(file).contains(QStringLiteral("QThreadPool"))) << qPrintable(file);
}

} // namespace ostrel::test
