#include "WindowManager.h"

#include "WaitFor.h"

#include <QFile>
#include <QRegularExpression>

namespace ostrel::test {

namespace {

constexpr char minimising[] = R"(<openbox_config xmlns="http://openbox.org/3.4/rc">
  <applications><application class="*"><iconic>yes</iconic></application></applications>
</openbox_config>)";

} // namespace

WindowManager::WindowManager(const VirtualDisplay &display, NewWindows newWindows)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.insert(QStringLiteral("DISPLAY"), display.name());
    m_manager.setProcessEnvironment(m_environment);
    m_manager.logTo(QProcess::nullDevice());
    QStringList arguments = {QStringLiteral("--sm-disable")};
    if (newWindows == NewWindows::minimised) {
        QFile config(m_folder.filePath(QStringLiteral("rc.xml")));
        if (config.open(QIODevice::WriteOnly))
            config.write(minimising);
        arguments += {QStringLiteral("--config-file"), config.fileName()};
    }
    m_manager.start(QStringLiteral("openbox"), arguments);
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
