#include "BoundProcess.h"
#include "MarkdownDocument.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

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

QStringList wordsOf(const QString &command)
{
    return command.split(u' ', Qt::SkipEmptyParts);
}

/// Whether @p command goes on until it is told to end: it watches, or follows what is watched.
bool isEndless(const QString &command)
{
    const QStringList words = wordsOf(command);
    if (words.first() != u"ostrel"_s)
        return false;
    const QString first = words.value(1);
    return first.isEmpty() || first == u"--add-monitor"_s || first == u"--demo"_s ||
           words.contains(u"--watch"_s);
}

/// Whether @p command makes a check, whose result isn't the same everywhere.
bool isCheck(const QString &command)
{
    return command.startsWith(u"ostrel check"_s);
}

/// A person's terminal, in a home of its own from which no other computer can be reached.
class Terminal
{
public:
    Terminal()
        : m_environment(QProcessEnvironment::systemEnvironment())
    {
        QDir(m_home.path()).mkpath(u"bin"_s);
        QDir(m_home.path()).mkpath(u"temporary"_s);
        QFile::link(u"" OSTREL_PROGRAM ""_s, path(u"bin/ostrel"_s));
        for (const char *name :
             {"DISPLAY", "WAYLAND_DISPLAY", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME",
              "XDG_ACTIVATION_TOKEN", "DBUS_SESSION_BUS_ADDRESS", "no_proxy", "NO_PROXY"})
            m_environment.remove(QString::fromLatin1(name));
        set(u"PATH"_s, path(u"bin"_s) + u':' + m_environment.value(u"PATH"_s));
        set(u"HOME"_s, m_home.path());
        set(u"TMPDIR"_s, path(u"temporary"_s));
        set(u"XDG_RUNTIME_DIR"_s, m_home.path());
        set(u"DBUS_SYSTEM_BUS_ADDRESS"_s, u"unix:path="_s + path(u"no-such-bus"_s));
        set(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        set(u"LC_ALL"_s, u"C.UTF-8"_s);
        for (const char *name : {"http_proxy", "https_proxy", "all_proxy"})
            set(QString::fromLatin1(name), u"http://127.0.0.1:1"_s);
    }

    /// Runs @p command to its end; its exit code, or -1 if it doesn't end in an orderly way.
    int run(const QString &command)
    {
        BoundProcess process;
        begin(process, command);
        if (!waitFor([&] { return process.state() == QProcess::NotRunning; }))
            return -1;
        return codeOf(process);
    }
    /// Lets @p command begin its work, and then asks it to end; as run().
    int runUntilAsked(const QString &command)
    {
        BoundProcess process;
        begin(process, u"exec "_s + command);
        const bool works = waitFor([&] {
            return process.state() == QProcess::NotRunning || process.bytesAvailable() > 0 ||
                   hasBegun();
        });
        return works && process.stop() ? codeOf(process) : -1;
    }

private:
    void set(const QString &name, const QString &value) { m_environment.insert(name, value); }
    [[nodiscard]] QString path(const QString &name) const { return m_home.filePath(name); }
    [[nodiscard]] bool hasBegun() const
    {
        // A demo keeps its folder in the second place.
        return QFile::exists(socket()) || !QDir(path(u"temporary"_s)).isEmpty();
    }
    [[nodiscard]] QString socket() const { return path(u".local/share/Vantry/ostrel.sock"_s); }
    void begin(BoundProcess &process, const QString &command)
    {
        QFile::remove(socket()); // That of an earlier start.
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(m_home.path());
        process.start(u"sh"_s, {u"-c"_s, command});
    }
    static int codeOf(const BoundProcess &process)
    {
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
};

/// Whether @p command names a script of this project, with options that its description has.
bool isDescribedScript(const QString &command)
{
    const QStringList words = wordsOf(command);
    const QFileInfo script(sourceDir().filePath(words.first()));
    const QString content = contentOf(script.filePath());
    return script.isExecutable() && std::ranges::all_of(words, [&](const QString &word) {
               return !word.startsWith(u'-') || content.contains(word);
           });
}

/// Whether @p command uses a preset that there is: it builds with it, or runs a test program of its
/// build, `build/PRESET/tests/FOLDER/NAME`.
bool isOfAPreset(const QString &command)
{
    const QStringList words = wordsOf(command);
    const bool isBuild = words.first() == u"cmake"_s;
    const QStringList path = words.first().split(u'/');
    const QString preset = isBuild ? words.value(words.indexOf(u"--preset"_s) + 1) : path.value(1);
    const QString tests =
        contentOf(sourceDir().filePath(path.mid(2, 2).join(u'/') + u"/CMakeLists.txt"_s));
    return contentOf(sourceDir().filePath(u"CMakePresets.json"_s))
               .contains(u"\"name\": \"%1\""_s.arg(preset)) &&
           (isBuild || tests.contains(u"ostrel_test(%1\n"_s.arg(path.last())));
}

bool isOfTheBuild(const QString &command)
{
    return command.startsWith(u"cmake "_s) || command.startsWith(u"build/"_s);
}

bool isScript(const QString &command)
{
    return command.startsWith(u"scripts/"_s) || command.startsWith(u".ci/"_s);
}

bool needsRoot(const QString &command)
{
    return command.startsWith(u"sudo "_s);
}

bool works(const QString &command, Terminal &terminal)
{
    if (isScript(command))
        return isDescribedScript(command);
    if (isOfTheBuild(command))
        return isOfAPreset(command);
    if (needsRoot(command))
        return true;
    const int code = isEndless(command) ? terminal.runUntilAsked(command) : terminal.run(command);
    return code == 0 || (code == 1 && isCheck(command));
}

} // namespace

/// The commands of one document are run one after the other, so that each finds what the ones
/// before it have left.
TEST(DocumentedCommandsTest, EveryCommandOfTheDocumentsWorks)
{
    qsizetype count = 0;
    for (const QString &file : markdownFiles(sourceDir().path())) {
        const MarkdownDocument document(contentOf(sourceDir().filePath(file)));
        Terminal terminal;
        for (const auto &command : document.commands()) {
            EXPECT_TRUE(works(command.text, terminal))
                << qPrintable(file) << ':' << command.number << ": " << qPrintable(command.text);
            ++count;
        }
    }
    EXPECT_GT(count, 20);
}

} // namespace ostrel::test
