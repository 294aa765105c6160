#include "WindowManager.h"

#include "WaitFor.h"

namespace ostrel::test {

namespace {

QProcessEnvironment environmentOn(const QString &display)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), display);
    return environment;
}

} // namespace

WindowManager::WindowManager(const VirtualDisplay &display)
    : m_display(display.name())
{
    m_manager.setProcessEnvironment(environmentOn(m_display));
    m_manager.logTo(QProcess::nullDevice());
    m_manager.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
}

bool WindowManager::isReady()
{
    return waitFor([this] { return control({QStringLiteral("-m")}); });
}

bool WindowManager::hasWindow(const QString &title)
{
    control({QStringLiteral("-l")});
    return m_control.readAllStandardOutput().contains(title.toUtf8());
}

bool WindowManager::closeWindow(const QString &title)
{
    return control({QStringLiteral("-c"), title});
}

bool WindowManager::control(const QStringList &arguments)
{
    m_control.setProcessEnvironment(environmentOn(m_display));
    m_control.logTo(QProcess::nullDevice());
    m_control.start(QStringLiteral("wmctrl"), arguments);
    return m_control.waitForFinished() && m_control.exitCode() == 0;
}

} // namespace ostrel::test
