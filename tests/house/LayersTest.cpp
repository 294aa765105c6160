#include "LayerDiagram.h"
#include "Printers.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QDir sourceDir()
{
    return {u"" OSTREL_SOURCE_DIR "/src"_s};
}

QStringList filesNamed(const QStringList &patterns)
{
    QStringList files;
    QDirIterator it(sourceDir().path(), patterns, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files += sourceDir().relativeFilePath(it.next());
    files.sort();
    return files;
}

QStringList sourceFiles()
{
    return filesNamed({u"*.h"_s, u"*.cpp"_s});
}

QStringList qmlFiles()
{
    return filesNamed({u"*.qml"_s});
}

QStringList buildFiles()
{
    return filesNamed({u"CMakeLists.txt"_s});
}

/// The box that @p file belongs to.
QString folderOf(const QString &file)
{
    return file.contains(u'/') ? file.section(u'/', 0, -2) : u"main.cpp"_s;
}

QString contentOf(const QString &file)
{
    QFile source(sourceDir().filePath(file));
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

/// A line of src/ by which one folder uses another.
struct Use
{
    QString file;
    qsizetype line = 0;
    QString name; ///< The header's or target's.
    QString from;
    QString to;
};

QByteArray missingArrowOf(const Use &use)
{
    return u"src/%1:%2: %3 is of src/%4, to which docs/architecture.md has no arrow "
           "from %5"_s.arg(use.file, QString::number(use.line), use.name, use.to, use.from)
               .toUtf8();
}

/// The uses of other folders in @p files. @p pattern captures a name in a line from which
/// @p passedOver has been removed, and @p folderOfName says which folder the name belongs to.
QList<Use> usesIn(const QStringList &files, const QRegularExpression &pattern,
                  const QHash<QString, QString> &folderOfName,
                  const QRegularExpression &passedOver = {})
{
    QList<Use> uses;
    for (const QString &file : files) {
        QStringList lines = contentOf(file).split(u'\n');
        lines.replaceInStrings(passedOver, QString());
        for (qsizetype i = 0; i < lines.size(); ++i) {
            for (const auto &match : pattern.globalMatch(lines[i])) {
                const QString name = match.captured(1);
                const QString folder = folderOfName.value(name);
                if (!folder.isEmpty() && folder != folderOf(file))
                    uses.append({file, i + 1, name, folderOf(file), folder});
            }
        }
    }
    return uses;
}

QList<Use> includes()
{
    static const QRegularExpression include(u"^#include \"([^\"]+)\""_s);
    QHash<QString, QString> folderOfHeader;
    for (const QString &file : sourceFiles())
        folderOfHeader.insert(file.section(u'/', -1), folderOf(file));
    return usesIn(sourceFiles(), include, folderOfHeader);
}

/// The uses of QML types; a type has the name of its file.
QList<Use> qmlTypes()
{
    static const QRegularExpression type(u"\\b([A-Z]\\w+)\\b"_s);
    static const QRegularExpression textOrComment(u"\"[^\"]*\"|//.*"_s);
    QHash<QString, QString> folderOfType;
    for (const QString &file : sourceFiles() + qmlFiles())
        folderOfType.insert(QFileInfo(file).completeBaseName(), folderOf(file));
    return usesIn(qmlFiles(), type, folderOfType, textOrComment);
}

QList<Use> links()
{
    static const QRegularExpression made(
        u"\\b(?:ostrel_library\\(|add_library\\(ostrel(?:_|::))(\\w+)[\\s)]"_s);
    // The plugin of a QML module belongs to that module.
    static const QRegularExpression linked(u"\\bostrel(?:_|::)(\\w+?)(?:plugin)?(?=[\\s)]|$)"_s);
    QHash<QString, QString> folderOfTarget;
    for (const QString &file : buildFiles()) {
        for (const auto &match : made.globalMatch(contentOf(file)))
            folderOfTarget.insert(match.captured(1), folderOf(file));
    }
    return usesIn(buildFiles(), linked, folderOfTarget);
}

/// Fails for each of @p uses for which the diagram has no arrows.
void expectArrows(const QList<Use> &uses)
{
    const LayerDiagram diagram = architectureDiagram();
    for (const Use &use : uses)
        EXPECT_TRUE(diagram.reachOf(use.from).contains(use.to)) << missingArrowOf(use).constData();
}

} // namespace

TEST(LayerDiagramTest, EveryFolderIsABox)
{
    QSet<QString> folders;
    for (const QString &file : sourceFiles() + qmlFiles())
        folders.insert(folderOf(file));
    EXPECT_THAT(architectureDiagram().folders().values(),
                testing::UnorderedElementsAreArray(folders.values()));
}

TEST(LayerDiagramTest, ADottedArrowEndsAPath)
{
    const LayerDiagram diagram(
        u"a[top: first, of all] --> b & c\nb[left: b] -. implements .-> d --> e\n"
        "c[middle: c] --> f[last: f]\nd[port: d]\ne[below: e]"_s);
    EXPECT_EQ(diagram.reachOf(u"top"_s),
              (QSet<QString>{u"left"_s, u"middle"_s, u"port"_s, u"last"_s}));
    EXPECT_EQ(diagram.reachOf(u"port"_s), QSet<QString>{u"below"_s});
}

TEST(LayersTest, FoldersIncludeOnlyWhereAnArrowLeads)
{
    const QList<Use> all = includes();
    EXPECT_GT(all.size(), 100) << "the test no longer finds what it is to judge";
    expectArrows(all);
}

TEST(LayersTest, ViewsNameTypesOnlyWhereAnArrowLeads)
{
    const QList<Use> all = qmlTypes();
    EXPECT_GT(all.size(), 100) << "the test no longer finds what it is to judge";
    expectArrows(all);
}

TEST(LayersTest, FoldersLinkOnlyWhereAnArrowLeads)
{
    const QList<Use> all = links();
    EXPECT_GT(all.size(), 30) << "the test no longer finds what it is to judge";
    expectArrows(all);
}

TEST(LayersTest, EveryArrowIsUsed)
{
    QSet<std::pair<QString, QString>> used;
    for (const Use &use : includes() + qmlTypes() + links())
        used.insert({use.from, use.to});
    for (const auto &[from, to, isDotted] : architectureDiagram().arrows())
        EXPECT_TRUE(used.contains({from, to})) << qPrintable(from) << " to " << qPrintable(to);
}

TEST(LayersTest, ArrowsFormNoCycles)
{
    const LayerDiagram diagram = architectureDiagram();
    for (const QString &folder : diagram.folders())
        EXPECT_FALSE(diagram.reachOf(folder).contains(folder)) << qPrintable(folder);
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
    static const QRegularExpression conditional(u"^\\s*#\\s*(if|ifdef|ifndef|elif)\\b"_s,
                                                QRegularExpression::MultilineOption);
    for (const QString &file : sourceFiles()) {
        if (file.startsWith(u"platform/"_s))
            continue;
        EXPECT_FALSE(conditional.match(contentOf(file)).hasMatch()) << qPrintable(file);
    }
}

// Qt's painter waits for that pool on the main thread.
TEST(LayersTest, QtsThreadPoolIsNotUsed)
{
    for (const QString &file : sourceFiles())
        EXPECT_FALSE(contentOf(file).contains(u"QThreadPool"_s)) << qPrintable(file);
}

} // namespace ostrel::test
