#include "DesktopUser.h"

#include "WaitFor.h"

namespace ostrel::test {

namespace {

QStringList moveTo(const QPoint &place)
{
    return {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())};
}

} // namespace

DesktopUser::DesktopUser(const VirtualDisplay &display)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.insert(QStringLiteral("DISPLAY"), display.name());
    m_clipboardOwner.setProcessEnvironment(m_environment);
    m_clipboardOwner.logTo(QProcess::nullDevice());
}

bool DesktopUser::press(const QStringList &keys)
{
    return act(QStringList(QStringLiteral("key")) + keys);
}

bool DesktopUser::type(const QString &text)
{
    return act({QStringLiteral("type"), text});
}

bool DesktopUser::click(const QPoint &place)
{
    return act(moveTo(place) << QStringLiteral("click") << QStringLiteral("1"));
}

bool DesktopUser::clickRight(const QPoint &place)
{
    return act(moveTo(place) << QStringLiteral("click") << QStringLiteral("3"));
}

bool DesktopUser::drag(const QPoint &from, const QPoint &to)
{
    return act(moveTo(from) << QStringLiteral("mousedown") << QStringLiteral("1") << moveTo(to)
                            << QStringLiteral("mouseup") << QStringLiteral("1"));
}

bool DesktopUser::copy(const QString &text)
{
    m_clipboardOwner.kill();
    m_clipboardOwner.waitForFinished();
    m_clipboardOwner.start(QStringLiteral("xclip"),
                           {QStringLiteral("-quiet"), QStringLiteral("-selection"),
                            QStringLiteral("clipboard"), QStringLiteral("-in")});
    m_clipboardOwner.write(text.toUtf8());
    m_clipboardOwner.closeWriteChannel();
    return waitFor([&] { return pasted() == text; });
}

bool DesktopUser::act(const QStringList &arguments)
{
    BoundProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(QStringLiteral("xdotool"), arguments);
    return process.waitForFinished() && process.exitCode() == 0;
}

QString DesktopUser::pasted()
{
    BoundProcess process;
    process.setProcessEnvironment(m_environment);
    process.logTo(QProcess::nullDevice());
    process.start(QStringLiteral("xclip"), {QStringLiteral("-selection"),
                                            QStringLiteral("clipboard"), QStringLiteral("-out")});
    return process.waitForFinished() ? QString::fromUtf8(process.readAllStandardOutput())
                                     : QString();
}

} // namespace ostrel::test
