#include "WindowManager.h"

#include "WaitFor.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

constexpr char minimising[] = R"(<openbox_config xmlns="http://openbox.org/3.4/rc">
  <applications><application class="*"><iconic>yes</iconic></application></applications>
</openbox_config>)";

} // namespace

WindowManager::WindowManager(const VirtualDisplay &display, NewWindows newWindows)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.insert(u"DISPLAY"_s, display.name());
    m_manager.setProcessEnvironment(m_environment);
    m_manager.logTo(QProcess::nullDevice());
    QStringList arguments = {u"--sm-disable"_s};
    if (newWindows == NewWindows::minimised) {
        QFile config(m_folder.filePath(u"rc.xml"_s));
        if (config.open(QIODevice::WriteOnly))
            config.write(minimising);
        arguments += {u"--config-file"_s, config.fileName()};
    }
    m_manager.start(u"openbox"_s, arguments);
}

bool WindowManager::isReady()
{
    return waitFor([this] { return control({u"-m"_s}); });
}

bool WindowManager::hasWindow(const QString &title)
{
    // Window, desktop, machine, title.
    const QRegularExpression line(u"^\\S+ +\\S+ +\\S+ %1$"_s.arg(QRegularExpression::escape(title)),
                                  QRegularExpression::MultilineOption);
    return control({u"-l"_s}) && line.match(QString::fromUtf8(m_output)).hasMatch();
}

bool WindowManager::closeWindow(const QString &title)
{
    return control({u"-F"_s, u"-c"_s, title});
}

QRect WindowManager::geometryOf(const QString &title)
{
    // Window, desktop, x, y, width, height, machine, title.
    const QRegularExpression line(u"^\\S+ +\\S+ +(\\S+) +(\\S+) +(\\S+) +(\\S+) +\\S+ %1$"_s.arg(
                                      QRegularExpression::escape(title)),
                                  QRegularExpression::MultilineOption);
    const bool isListed = control({u"-l"_s, u"-G"_s});
    const auto match = line.match(QString::fromUtf8(m_output));
    const auto number = [&](int group) { return match.captured(group).toInt(); };
    return isListed ? QRect(number(1), number(2), number(3), number(4)) : QRect();
}

bool WindowManager::moveWindow(const QString &title, const QRect &geometry)
{
    const auto place = u"0,%1,%2,%3,%4"_s.arg(geometry.x())
                           .arg(geometry.y())
                           .arg(geometry.width())
                           .arg(geometry.height());
    return control({u"-F"_s, u"-r"_s, title, u"-e"_s, place});
}

bool WindowManager::maximiseWindow(const QString &title)
{
    return control({u"-F"_s, u"-r"_s, title, u"-b"_s, u"add,maximized_vert,maximized_horz"_s});
}

bool WindowManager::control(const QStringList &arguments)
{
    BoundProcess process;
    process.setProcessEnvironment(m_environment);
    process.logTo(QProcess::nullDevice());
    process.start(u"wmctrl"_s, arguments);
    const bool isDone = process.waitForFinished() && process.exitCode() == 0;
    m_output = process.readAllStandardOutput();
    return isDone;
}

} // namespace ostrel::test
