#include "DesktopUser.h"

#include "WaitFor.h"

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QStringList moveTo(const QPoint &place)
{
    return {u"mousemove"_s, QString::number(place.x()), QString::number(place.y())};
}

} // namespace

DesktopUser::DesktopUser(const VirtualDisplay &display)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.insert(u"DISPLAY"_s, display.name());
    m_clipboardOwner.setProcessEnvironment(m_environment);
    m_clipboardOwner.logTo(QProcess::nullDevice());
}

bool DesktopUser::press(const QStringList &keys)
{
    return act(QStringList(u"key"_s) + keys);
}

bool DesktopUser::type(const QString &text)
{
    return act({u"type"_s, text});
}

bool DesktopUser::click(const QPoint &place)
{
    return act(moveTo(place) << u"click"_s << u"1"_s);
}

bool DesktopUser::clickRight(const QPoint &place)
{
    return act(moveTo(place) << u"click"_s << u"3"_s);
}

bool DesktopUser::drag(const QPoint &from, const QPoint &to)
{
    return act(moveTo(from) << u"mousedown"_s << u"1"_s << moveTo(to) << u"mouseup"_s << u"1"_s);
}

bool DesktopUser::copy(const QString &text)
{
    m_clipboardOwner.kill();
    m_clipboardOwner.waitForFinished();
    m_clipboardOwner.start(u"xclip"_s, {u"-quiet"_s, u"-selection"_s, u"clipboard"_s, u"-in"_s});
    m_clipboardOwner.write(text.toUtf8());
    m_clipboardOwner.closeWriteChannel();
    return waitFor([&] { return pasted() == text; });
}

bool DesktopUser::act(const QStringList &arguments)
{
    BoundProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(u"xdotool"_s, arguments);
    return process.waitForFinished() && process.exitCode() == 0;
}

QString DesktopUser::pasted()
{
    BoundProcess process;
    process.setProcessEnvironment(m_environment);
    process.logTo(QProcess::nullDevice());
    process.start(u"xclip"_s, {u"-selection"_s, u"clipboard"_s, u"-out"_s});
    return process.waitForFinished() ? QString::fromUtf8(process.readAllStandardOutput())
                                     : QString();
}

} // namespace ostrel::test
