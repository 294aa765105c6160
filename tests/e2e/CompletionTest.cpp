#include "BoundProcess.h"
#include "CommandLine.h"
#include "LongOptions.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDir>
#include <QProcessEnvironment>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <ostream>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

struct Shell
{
    const char *name;
    const char *withoutSettings; ///< The option that leaves out its user's settings.
    const char *parsesOnly;      ///< The option that reads a script without running it.
    const char *completions;     ///< Their file.
};

void PrintTo(const Shell &shell, std::ostream *out)
{
    *out << shell.name;
}

constexpr std::array shells = {
    Shell{"bash", "--norc", "-n", "ostrel.bash"},
    Shell{"zsh", "-f", "-n", "_ostrel"},
    Shell{"fish", "--no-config", "--no-execute", "ostrel.fish"},
};

QString completionsDir()
{
    return u"" OSTREL_SOURCE_DIR "/packaging/completions"_s;
}

/// A shell with the built program and its completions, in a home of its own. Skipped if the shell
/// isn't installed.
class CompletionTest : public testing::TestWithParam<Shell>
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QString::fromLatin1(GetParam().name)).isEmpty())
            GTEST_SKIP() << GetParam().name << " isn't installed";
        QDir(home.path()).mkpath(u"bin"_s);
        QFile::link(u"" OSTREL_PROGRAM ""_s, home.filePath(u"bin/ostrel"_s));
        set(u"PATH"_s, home.filePath(u"bin"_s) + u':' + environment.value(u"PATH"_s));
        set(u"HOME"_s, home.path());
        set(u"XDG_DATA_HOME"_s, home.filePath(u"data"_s));
        set(u"XDG_CONFIG_HOME"_s, home.filePath(u"config"_s));
        set(u"XDG_RUNTIME_DIR"_s, home.path());
        set(u"LC_ALL"_s, u"C.UTF-8"_s);
        set(u"TERM"_s, u"dumb"_s);
    }

    /// What @p program prints; a failure unless it succeeds.
    QString outputOf(const QString &program, const QStringList &arguments)
    {
        BoundProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(home.path());
        process.start(program, arguments);
        EXPECT_TRUE(waitFor([&] { return process.state() == QProcess::NotRunning; }));
        EXPECT_EQ(process.exitCode(), 0) << qPrintable(arguments.join(u' '));
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    /// What the shell offers for the last word of @p line.
    QSet<QString> offersFor(const QString &line)
    {
        const auto shell = QString::fromLatin1(GetParam().name);
        const QString script = u"" OSTREL_SOURCE_DIR "/tests/e2e/shells/offers."_s + shell;
        const QString offers = outputOf(shell, {QString::fromLatin1(GetParam().withoutSettings),
                                                script, completionsDir(), line});
        const QStringList words = offers.split(u'\n', Qt::SkipEmptyParts);
        return {words.begin(), words.end()};
    }

    void addMonitor(const QString &name, const QString &folder)
    {
        outputOf(u"" OSTREL_PROGRAM ""_s,
                 {u"add"_s, u"localhost:9"_s, u"--name"_s, name, u"--data-dir"_s, folder});
    }

    QTemporaryDir home;

private:
    void set(const QString &name, const QString &value) { environment.insert(name, value); }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

} // namespace

TEST_P(CompletionTest, TheShellCanReadThem)
{
    outputOf(QString::fromLatin1(GetParam().name),
             {QString::fromLatin1(GetParam().parsesOnly),
              completionsDir() + u'/' + QString::fromLatin1(GetParam().completions)});
}

TEST_P(CompletionTest, EveryCommandIsOffered)
{
    const QSet<QString> offers = offersFor(u"ostrel "_s);
    for (const Command &command : allCommands())
        EXPECT_TRUE(offers.contains(command.name)) << qPrintable(command.name);
}

TEST_P(CompletionTest, TheOptionsOfACommandAreOfferedWithIt)
{
    for (const Command &command : allCommands()) {
        const auto options = longOptionsIn(command.help) + QSet<QString>{u"help"_s};
        const QSet<QString> offers = offersFor(u"ostrel %1 --"_s.arg(command.name));
        EXPECT_EQ(longOptionsIn(offers.values().join(u' ')), options) << qPrintable(command.name);
    }
}

TEST_P(CompletionTest, TheMonitorsOfTheNamedFolderAreOffered)
{
    addMonitor(u"Shop"_s, home.filePath(u"data/Vantry"_s));
    addMonitor(u"Spare"_s, home.filePath(u"elsewhere"_s));
    EXPECT_EQ(offersFor(u"ostrel pause S"_s), QSet<QString>{u"Shop"_s});
    EXPECT_EQ(offersFor(u"ostrel pause --data-dir elsewhere S"_s), QSet<QString>{u"Spare"_s});
}

INSTANTIATE_TEST_SUITE_P(Shells, CompletionTest, testing::ValuesIn(shells),
                         [](const auto &shell) { return std::string(shell.param.name); });

} // namespace ostrel::test
