#include "ProgramStart.h"

#include "DescriptorLimit.h"
#include "MessageBus.h"

#include <QProcess>
#include <QPromise>
#include <QSet>
#include <QStandardPaths>
#include <QTimer>

#include <memory>
#include <unistd.h>

namespace ostrel {

namespace {

bool isInstalled(const QStringList &command)
{
    return !QStandardPaths::findExecutable(command.first()).isEmpty();
}

void prepare(QProcess &process, const QStringList &command)
{
    const QStringList limited = withInitialDescriptorLimit(command);
    process.setProgram(limited.first());
    process.setArguments(limited.sliced(1));
    process.setProcessEnvironment(environmentOfPrograms());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setChildProcessModifier([] { ::setsid(); });
}

/// Those that are watched. At the end they are left alone: a QProcess that is destroyed kills its
/// program.
QSet<QProcess *> &programsAtWork()
{
    static auto *programs = new QSet<QProcess *>;
    return *programs;
}

/// Tells a future's reader a result, once.
class Answer
{
public:
    Answer() { m_promise.start(); }

    [[nodiscard]] QFuture<bool> future() const { return m_promise.future(); }
    void give(bool result)
    {
        if (m_promise.future().isFinished())
            return;
        m_promise.addResult(result);
        m_promise.finish();
    }

private:
    QPromise<bool> m_promise;
};

void forget(QProcess *process)
{
    programsAtWork().remove(process);
    process->deleteLater();
}

void follow(QProcess *process, const std::shared_ptr<Answer> &answer)
{
    QObject::connect(process, &QProcess::finished, process,
                     [process, answer](int code, QProcess::ExitStatus status) {
                         answer->give(status == QProcess::NormalExit && code == 0);
                         forget(process);
                     });
    QObject::connect(process, &QProcess::errorOccurred, process,
                     [process, answer](QProcess::ProcessError error) {
                         if (error != QProcess::FailedToStart)
                             return;
                         answer->give(false);
                         forget(process);
                     });
}

} // namespace

bool startDetached(const QStringList &command)
{
    if (!isInstalled(command))
        return false;
    QProcess process;
    prepare(process, command);
    return process.startDetached();
}

QFuture<bool> startWatched(const QStringList &command, std::chrono::milliseconds patience)
{
    if (!isInstalled(command))
        return QtFuture::makeReadyFuture(false);
    auto *process = new QProcess;
    programsAtWork().insert(process);
    prepare(*process, command);
    const auto answer = std::make_shared<Answer>();
    follow(process, answer);
    QTimer::singleShot(patience, process, [answer] { answer->give(true); });
    process->start();
    return answer->future();
}

} // namespace ostrel
