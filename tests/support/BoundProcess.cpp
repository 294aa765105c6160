#include "BoundProcess.h"

#include <QDeadlineTimer>

#include <csignal>
#include <sys/prctl.h>

namespace ostrel::test {

BoundProcess::BoundProcess(QObject *parent)
    : QProcess(parent)
{
    setProcessChannelMode(ForwardedErrorChannel);
    setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

BoundProcess::~BoundProcess()
{
    if (state() == NotRunning)
        return;
    kill();
    waitForFinished();
}

void BoundProcess::logTo(const QString &path)
{
    setProcessChannelMode(SeparateChannels);
    setStandardErrorFile(path);
}

QByteArray BoundProcess::nextLine(std::chrono::milliseconds patience)
{
    const QDeadlineTimer deadline(patience);
    while (!canReadLine()) {
        if (!waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            break;
    }
    return readLine().trimmed();
}

bool BoundProcess::stop()
{
    terminate();
    return waitForFinished();
}

} // namespace ostrel::test
