#pragma once

#include "BoundProcess.h"
#include "Check.h"
#include "Monitor.h"

#include <QHash>
#include <QList>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <vector>

namespace ostrel::test {

using namespace Qt::StringLiterals;

class VirtualDisplay;

/// The real program, with its own home folder and, unless it is given them, no display and no bus.
class OstrelProgram
{
public:
    OstrelProgram();

    /// Applies to the starts that follow.
    void setEnvironment(const QString &name, const QString &value);
    /// Shows the windows of the starts that follow on @p display; otherwise they aren't on any
    /// screen.
    void showOn(const VirtualDisplay &display);
    /// Applies to the starts that follow.
    void setArguments(const QStringList &arguments) { m_arguments = arguments; }
    /// Starts what is at @p path from now on, a copy of the program.
    void setProgram(const QString &path) { m_program = path; }
    /// The path of the program that was built.
    [[nodiscard]] static QString builtProgram();
    /// Writes what the folder holds before the program sees it.
    void writeMonitors(const QList<Monitor> &monitors) const;

    /// From the next start on, keeps what the program writes to stderr, which otherwise goes to the
    /// test's own stderr.
    void keepErrors() { m_process.logTo(homeFile(u"errors"_s)); }
    /// The lines that it wrote there itself, without Qt's.
    [[nodiscard]] QByteArray complaints() const;

    /// Starts watching, and returns at once. False if the program can't be run.
    [[nodiscard]] bool launch();
    /// Starts watching, and returns when the window's content has appeared, so that the login item
    /// is there. False if the program ends instead.
    [[nodiscard]] bool start();
    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }
    /// Sends SIGTERM; the exit code, or -1 if it doesn't end in an orderly way.
    [[nodiscard]] int stop();
    /// Waits until it ends by itself; the exit code, or -1 if it doesn't.
    [[nodiscard]] int waitForEnd();
    /// Sends SIGKILL.
    void kill();
    [[nodiscard]] qint64 processId() const { return m_process.processId(); }

    /// What a run() with its arguments on this folder, beside the program that watches, ended with:
    /// its exit code, and what it printed.
    struct Outcome
    {
        int exitCode = -1;
        QByteArray output;
        QByteArray errors;
    };
    [[nodiscard]] Outcome run(const QStringList &arguments) const;
    /// The same in two steps: what it prints can be read meanwhile, and is then missing from the
    /// outcome.
    [[nodiscard]] std::unique_ptr<BoundProcess> begin(const QStringList &arguments) const;
    [[nodiscard]] static Outcome outcomeOf(BoundProcess &process);

    [[nodiscard]] QString dataDir() const { return m_home.filePath(u"data/Vantry"_s); }
    [[nodiscard]] QString homeFile(const QString &name) const { return m_home.filePath(name); }
    [[nodiscard]] QByteArray file(const QString &name) const;
    /// The login item's file.
    [[nodiscard]] QString loginItem() const
    {
        return homeFile(u"config/autostart/io.github.ostrel.Ostrel.desktop"_s);
    }
    /// A preference as its file holds it now; empty if the file doesn't have it.
    [[nodiscard]] QByteArray preference(const QByteArray &key) const;

    /// What a reader now finds in the files; nothing if one doesn't load.
    [[nodiscard]] std::optional<QList<Monitor>> readMonitors() const;
    [[nodiscard]] std::optional<QHash<QUuid, std::vector<Check>>> readChecks() const;

private:
    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
    QString m_program = builtProgram();
    QStringList m_arguments;
    BoundProcess m_process;
};

} // namespace ostrel::test
