#pragma once

#include "BoundProcess.h"
#include "Check.h"
#include "Monitor.h"

#include <QHash>
#include <QList>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <optional>
#include <vector>

namespace ostrel::test {

using namespace Qt::StringLiterals;

class VirtualDisplay;

/// The real program, with a home of its own and, unless it is given more, neither display nor bus.
class OstrelProgram
{
public:
    OstrelProgram();

    /// For the starts that follow.
    void setEnvironment(const QString &name, const QString &value);
    /// Where the windows of the starts that follow are; they aren't on any screen otherwise.
    void showOn(const VirtualDisplay &display);
    /// For the starts that follow.
    void setArguments(const QStringList &arguments) { m_arguments = arguments; }
    /// What the folder holds before the program sees it.
    void writeMonitors(const QList<Monitor> &monitors) const;

    /// What it says on stderr from the next start on is kept, instead of going where this program's
    /// goes.
    void keepErrors() { m_process.logTo(homeFile(u"errors"_s)); }
    /// The lines that it said there itself, without Qt's.
    [[nodiscard]] QByteArray complaints() const;

    /// Starts watching, and returns at once. False where the program can't be run.
    [[nodiscard]] bool launch();
    /// Starts watching, and returns when the window's content has appeared and so the login item is
    /// there. False where it ends instead.
    [[nodiscard]] bool start();
    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }
    /// SIGTERM; the exit code, or -1 where it doesn't end in an orderly way.
    [[nodiscard]] int stop();
    /// Waits until it ends by itself; the exit code, or -1 where it doesn't.
    [[nodiscard]] int waitForEnd();
    /// SIGKILL.
    void kill();
    [[nodiscard]] qint64 processId() const { return m_process.processId(); }

    /// Runs the program with @p arguments and this folder beside the one that watches; its exit
    /// code, and what it printed.
    struct Outcome
    {
        int exitCode = -1;
        QByteArray output;
        QByteArray errors;
    };
    [[nodiscard]] Outcome run(const QStringList &arguments) const;

    [[nodiscard]] QString dataDir() const { return m_home.filePath(u"data/Vantry"_s); }
    [[nodiscard]] QString homeFile(const QString &name) const { return m_home.filePath(name); }
    [[nodiscard]] QByteArray file(const QString &name) const;
    /// A preference as its file holds it at the moment; empty where that has none.
    [[nodiscard]] QByteArray preference(const QByteArray &key) const;

    /// What a reader sees in the files at the moment; nothing where one doesn't load.
    [[nodiscard]] std::optional<QList<Monitor>> readMonitors() const;
    [[nodiscard]] std::optional<QHash<QUuid, std::vector<Check>>> readChecks() const;

private:
    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
    QStringList m_arguments;
    BoundProcess m_process;
};

} // namespace ostrel::test
