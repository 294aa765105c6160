#include "FreedesktopLoginItem.h"

#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

/// A home folder with a program, and nothing on PATH but one empty folder.
class FreedesktopLoginItemTest : public testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(path("config")));
        qputenv("PATH", QFile::encodeName(path("bin")));
        QDir(m_folder.path()).mkdir(u"bin"_s);
    }

    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }
    [[nodiscard]] QString entryPath() const
    {
        return path("config/autostart/io.github.ostrel.Ostrel.desktop");
    }
    /// Where the entry was before the program had its present id.
    [[nodiscard]] QString formerPath() const { return path("config/autostart/ostrel.desktop"); }

    [[nodiscard]] QString makeProgram(const QString &relativePath)
    {
        const QString program = m_folder.filePath(relativePath);
        QDir().mkpath(QFileInfo(program).path());
        QFile file(program);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        return program;
    }

    [[nodiscard]] QByteArray entry() const
    {
        QFile file(entryPath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void writeEntry(const QByteArray &text) const { write(entryPath(), text); }
    void writeFormerEntry(const QByteArray &text) const { write(formerPath(), text); }

    static void write(const QString &path, const QByteArray &text)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    /// The files and links in the folder of the entries.
    [[nodiscard]] QStringList entryNames() const
    {
        return QDir(path("config/autostart")).entryList(QDir::Files | QDir::System);
    }

    /// The entry's line for @p key.
    [[nodiscard]] QString valueOf(const char *key) const
    {
        for (const QByteArray &line : entry().split('\n')) {
            if (line.startsWith(key + QByteArray("=")))
                return QString::fromUtf8(line.sliced(line.indexOf('=') + 1));
        }
        return {};
    }

    QTemporaryDir m_folder;
};

TEST_F(FreedesktopLoginItemTest, NamesTheInstalledProgramWithoutItsPath)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(entry(), QByteArray("[Desktop Entry]\n"
                                  "Type=Application\n"
                                  "Name=Ostrel\n"
                                  "Exec=ostrel\n"
                                  "TryExec=ostrel\n"
                                  "Icon=io.github.ostrel.Ostrel\n"
                                  "Terminal=false\n"
                                  "X-GNOME-Autostart-Delay=2\n"
                                  "X-KDE-autostart-after=panel\n"
                                  "X-LXQt-Need-Tray=true\n"));
}

TEST_F(FreedesktopLoginItemTest, NamesAProgramThatIsInstalledThroughALinkWithoutItsPath)
{
    const QString program = makeProgram(u"opt/ostrel"_s);
    QFile::link(program, path("bin/ostrel"));
    FreedesktopLoginItem item(program);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(valueOf("Exec"), u"ostrel"_s);
}

TEST_F(FreedesktopLoginItemTest, NamesAProgramThatIsNotInstalledByItsPath)
{
    const QString program = makeProgram(u"build/ostrel"_s);
    (void)makeProgram(u"bin/ostrel"_s); // Another program of the same name.
    FreedesktopLoginItem item(program);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(valueOf("Exec"), program);
    EXPECT_EQ(valueOf("TryExec"), program);
}

struct PathCase
{
    const char *name;
    const char *path;
    const char *exec;    ///< As in the file, without the folder.
    const char *tryExec; ///< Likewise.
};

void PrintTo(const PathCase &sample, std::ostream *out)
{
    *out << sample.name;
}

class FreedesktopLoginItemPathTest : public FreedesktopLoginItemTest,
                                     public testing::WithParamInterface<PathCase>
{
};

TEST_P(FreedesktopLoginItemPathTest, IsQuotedAndRecognized)
{
    FreedesktopLoginItem item(makeProgram(QString::fromUtf8(GetParam().path)));
    ASSERT_TRUE(item.registerItem());
    EXPECT_EQ(valueOf("Exec"), u'"' + m_folder.filePath(QString::fromUtf8(GetParam().exec)) + u'"');
    EXPECT_EQ(valueOf("TryExec"), m_folder.filePath(QString::fromUtf8(GetParam().tryExec)));

    // If it hadn't recognized its own entry, the comment would be gone.
    writeEntry(entry() + "# kept\n");
    ASSERT_TRUE(item.registerItem());
    EXPECT_TRUE(entry().endsWith("# kept\n"));
}

INSTANTIATE_TEST_SUITE_P(
    Paths, FreedesktopLoginItemPathTest,
    testing::Values(PathCase{"Blank", "my programs/ostrel", "my programs/ostrel",
                             "my programs/ostrel"},
                    PathCase{"QuotationMark", "a\"b/ostrel", "a\\\\\"b/ostrel", "a\"b/ostrel"},
                    PathCase{"Dollar", "a$b/ostrel", "a\\\\$b/ostrel", "a$b/ostrel"},
                    PathCase{"Backslash", "a\\b/ostrel", "a\\\\\\\\b/ostrel", "a\\\\b/ostrel"},
                    PathCase{"PercentAndBlank", "5 %u/ostrel", "5 %%u/ostrel", "5 %u/ostrel"},
                    PathCase{"Umlaut", "f\xc3\xbcr mich/ostrel", "f\xc3\xbcr mich/ostrel",
                             "f\xc3\xbcr mich/ostrel"}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_F(FreedesktopLoginItemTest, EscapesPercentWithoutQuotes)
{
    const QString program = makeProgram(u"5%u/ostrel"_s);
    FreedesktopLoginItem item(program);
    ASSERT_TRUE(item.registerItem());
    EXPECT_EQ(valueOf("Exec"), m_folder.filePath(u"5%%u/ostrel"_s));
    EXPECT_EQ(valueOf("TryExec"), program);
}

TEST_F(FreedesktopLoginItemTest, IsIdempotent)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    ASSERT_TRUE(item.registerItem());
    const QByteArray first = entry();
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(entry(), first);
    EXPECT_EQ(QDir(path("config/autostart")).entryList(QDir::Files).size(), 1);

    EXPECT_TRUE(item.unregisterItem());
    EXPECT_FALSE(QFile::exists(entryPath()));
    EXPECT_TRUE(item.unregisterItem());
}

TEST_F(FreedesktopLoginItemTest, KeepsAnEntryThatStartsTheSameProgram)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    const QByteArray own = "[Desktop Entry]\nType=Application\nName=Mine\n"
                           "Exec=ostrel --data-dir /srv/watch\n";
    writeEntry(own);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(entry(), own);
}

TEST_F(FreedesktopLoginItemTest, RespectsAnEntryThatItsUserHasHidden)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    ASSERT_TRUE(item.registerItem());
    const QByteArray hidden = entry() + "Hidden=true\n";
    writeEntry(hidden);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(entry(), hidden);
}

TEST_F(FreedesktopLoginItemTest, RespectsAnEntryOfAnotherProgramThatItsUserHasDisabled)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    const QByteArray disabled = "[Desktop Entry]\nType=Application\nName=Ostrel\n"
                                "Exec=/old/ostrel\nX-GNOME-Autostart-enabled = false\n";
    writeEntry(disabled);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(entry(), disabled);
}

TEST_F(FreedesktopLoginItemTest, ReplacesAnEntryWhoseProgramIsGone)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    writeEntry("[Desktop Entry]\nType=Application\nName=Ostrel\nExec=/old/ostrel\n"
               "[Desktop Action Off]\nHidden=true\n");
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(valueOf("Exec"), u"ostrel"_s);
}

TEST_F(FreedesktopLoginItemTest, ReplacesAnInvalidEntry)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    writeEntry(QByteArray("\0\xff=\n[", 5));
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(valueOf("Exec"), u"ostrel"_s);
}

TEST_F(FreedesktopLoginItemTest, IsRefusedIfItCantBeWritten)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    QDir().mkpath(entryPath()); // A folder at the entry's path.
    EXPECT_FALSE(item.registerItem());
    EXPECT_FALSE(item.unregisterItem());
}

TEST_F(FreedesktopLoginItemTest, NeitherReplacesNorWaitsForAPipeOrADevice)
{
    QDir().mkpath(path("config/autostart"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(entryPath()).constData(), 0600), 0);
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    EXPECT_FALSE(item.registerItem());
    EXPECT_TRUE(item.unregisterItem());
    // A pipe stands in for the device: a program that replaced a real one would harm the computer.
    const QString device = path("device");
    ASSERT_EQ(::mkfifo(QFile::encodeName(device).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(device, entryPath()));
    EXPECT_FALSE(item.registerItem());
    EXPECT_EQ(QFileInfo(entryPath()).symLinkTarget(), device);
    struct stat status = {};
    ASSERT_EQ(::stat(QFile::encodeName(device).constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST_F(FreedesktopLoginItemTest, ClearsTheTemporaryFileOfAStartThatWasKilled)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    ASSERT_TRUE(item.registerItem());
    const QDir folder(path("config/autostart"));
    EXPECT_EQ(folder.entryList(QDir::Files), QStringList{u"io.github.ostrel.Ostrel.desktop"_s});
    QFile left(entryPath() + u".tmp"_s);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    ASSERT_TRUE(item.registerItem());
    EXPECT_EQ(folder.entryList(QDir::Files), QStringList{u"io.github.ostrel.Ostrel.desktop"_s});
}

TEST_F(FreedesktopLoginItemTest, TakesTheEntryOfItsFormerNameOver)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    const QByteArray own = "[Desktop Entry]\nType=Application\nName=Mine\n"
                           "Exec=ostrel --data-dir /srv/watch\n";
    writeFormerEntry(own);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(entry(), own);
    EXPECT_EQ(entryNames(), QStringList{u"io.github.ostrel.Ostrel.desktop"_s});
}

TEST_F(FreedesktopLoginItemTest, AFormerEntryThatItsUserHasDisabledStaysDisabled)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    for (const QByteArray line : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        const QByteArray disabled = "[Desktop Entry]\nType=Application\nExec=/old/ostrel\n" + line;
        writeFormerEntry(disabled);
        EXPECT_TRUE(item.registerItem());
        EXPECT_EQ(entry(), disabled);
        EXPECT_TRUE(item.unregisterItem());
    }
}

TEST_F(FreedesktopLoginItemTest, AFormerEntryThatIsALinkToADeviceStaysOne)
{
    QDir().mkpath(path("config/autostart"));
    const QString device = path("device");
    ASSERT_EQ(::mkfifo(QFile::encodeName(device).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(device, formerPath()));
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    EXPECT_FALSE(item.registerItem());
    EXPECT_EQ(QFileInfo(entryPath()).symLinkTarget(), device);
    EXPECT_FALSE(QFileInfo(formerPath()).isSymLink());
}

TEST_F(FreedesktopLoginItemTest, AFormerEntryBesideThePresentOneIsRemoved)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    ASSERT_TRUE(item.registerItem());
    const QByteArray present = entry();
    writeFormerEntry("[Desktop Entry]\nType=Application\nExec=ostrel\nHidden=true\n");
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(entry(), present);
    EXPECT_EQ(entryNames(), QStringList{u"io.github.ostrel.Ostrel.desktop"_s});
}

TEST_F(FreedesktopLoginItemTest, UnregisteringRemovesAFormerEntryToo)
{
    FreedesktopLoginItem item(makeProgram(u"bin/ostrel"_s));
    writeFormerEntry("[Desktop Entry]\nType=Application\nExec=ostrel\n");
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_EQ(entryNames(), QStringList());
}

TEST_F(FreedesktopLoginItemTest, IsValidToTheDesktopsOwnTool)
{
    const QString validator =
        QStandardPaths::findExecutable(u"desktop-file-validate"_s, {u"/usr/bin"_s});
    if (validator.isEmpty())
        GTEST_SKIP() << "desktop-file-validate is not installed";
    FreedesktopLoginItem item(makeProgram(u"a \"$%\\ b/ostrel"_s));
    ASSERT_TRUE(item.registerItem());
    QProcess process;
    process.start(validator, {entryPath()});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
}

} // namespace
} // namespace ostrel::test
