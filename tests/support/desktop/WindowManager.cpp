#include "WindowManager.h"

#include "WaitFor.h"

#include <QRegularExpression>

namespace ostrel::test {

WindowManager::WindowManager(const VirtualDisplay &display)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.insert(QStringLiteral("DISPLAY"), display.name());
    m_manager.setProcessEnvironment(m_environment);
    m_manager.logTo(QProcess::nullDevice());
    m_manager.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
}

bool WindowManager::isReady()
{
    return waitFor([this] { return control({QStringLiteral("-m")}); });
}

bool WindowManager::hasWindow(const QString &title)
{
    // Window, desktop, machine, title.
    const QRegularExpression line(
        QStringLiteral("^\\S+ +\\S+ +\\S+ %1$").arg(QRegularExpression::escape(title)),
        QRegularExpression::MultilineOption);
    return control({QStringLiteral("-l")}) && line.match(QString::fromUtf8(m_output)).hasMatch();
}

bool WindowManager::closeWindow(const QString &title)
{
    return control({QStringLiteral("-F"), QStringLiteral("-c"), title});
}

bool WindowManager::control(const QStringList &arguments)
{
    BoundProcess process;
    process.setProcessEnvironment(m_environment);
    process.logTo(QProcess::nullDevice());
    process.start(QStringLiteral("wmctrl"), arguments);
    const bool isDone = process.waitForFinished() && process.exitCode() == 0;
    m_output = process.readAllStandardOutput();
    return isDone;
}

} // namespace ostrel::test
