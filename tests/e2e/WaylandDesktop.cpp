#include "WaylandDesktop.h"

#include "PlainUser.h"
#include "WaitFor.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <functional>

namespace ostrel::test {

namespace {

const QString strangerProgram = u"" OSTREL_WAYLAND_STRANGER ""_s;

constexpr char configuration[] = R"(workspace_layout tabbed
focus_on_window_activation focus
no_focus [app_id="io.github.ostrel.Ostrel"]
output * bg #000000 solid_color
)";

/// Calls @p visit with every window in the compositor's tree.
void visitWindows(const QJsonObject &node, const std::function<void(const QJsonObject &)> &visit)
{
    if (node.contains(u"pid"_s))
        visit(node);
    for (const auto &list : {u"nodes"_s, u"floating_nodes"_s}) {
        for (const auto &child : node[list].toArray())
            visitWindows(child.toObject(), visit);
    }
}

/// The compositor refuses to run as root.
QStringList asPlainUser(const QStringList &command)
{
    const QString user = QString::number(PlainUser::nobody);
    const QStringList become = {u"setpriv"_s,     u"--reuid"_s, user,
                                u"--regid"_s,     user,         u"--clear-groups"_s,
                                u"--pdeathsig"_s, u"SIGKILL"_s};
    return ::geteuid() == 0 ? become + command : command;
}

} // namespace

QString WaylandDesktop::obstacle()
{
    if (strangerProgram.isEmpty())
        return u"wayland-client or wayland-protocols wasn't there when this was built"_s;
    for (const auto &program : {u"sway"_s, u"swaymsg"_s}) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            return program + u" isn't installed"_s;
    }
    return {};
}

WaylandDesktop::WaylandDesktop()
{
    QFile config(m_folder.filePath(u"config"_s));
    if (config.open(QIODevice::WriteOnly))
        config.write(configuration);
    config.close();
    if (::geteuid() == 0 && ::chown(QFile::encodeName(m_folder.path()).constData(),
                                    PlainUser::nobody, PlainUser::nobody) != 0)
        return;
    config.setPermissions(config.permissions() | QFile::ReadOther);
    m_compositor.setProcessEnvironment(environment());
    m_compositor.logTo(QProcess::nullDevice());
    const QStringList command = asPlainUser({u"sway"_s, u"--config"_s, config.fileName()});
    m_compositor.start(command.first(), command.sliced(1));
}

bool WaylandDesktop::isReady()
{
    return waitFor([this] {
        return QFile::exists(name()) && !control({u"-t"_s, u"get_version"_s}).isEmpty();
    });
}

bool WaylandDesktop::showStranger()
{
    m_stranger.setProcessEnvironment(environment());
    m_stranger.start(strangerProgram, QStringList());
    return waitFor([this] { return frontWindow() == u"Stranger"_s; });
}

QByteArray WaylandDesktop::token() const
{
    return outputOf(strangerProgram, {u"--token"_s}).trimmed();
}

bool WaylandDesktop::hasWindow(const QString &title) const
{
    bool isThere = false;
    visitWindows(QJsonDocument::fromJson(control({u"-t"_s, u"get_tree"_s})).object(),
                 [&](const QJsonObject &window) {
                     isThere = isThere || window[u"name"_s].toString() == title;
                 });
    return isThere;
}

QString WaylandDesktop::frontWindow() const
{
    QString front;
    visitWindows(QJsonDocument::fromJson(control({u"-t"_s, u"get_tree"_s})).object(),
                 [&](const QJsonObject &window) {
                     if (window[u"focused"_s].toBool() && window[u"visible"_s].toBool())
                         front = window[u"name"_s].toString();
                 });
    return front;
}

void WaylandDesktop::closeWindow(const QString &title) const
{
    (void)control({u"[title=\"^%1$\"] kill"_s.arg(title)});
}

QByteArray WaylandDesktop::outputOf(const QString &program, const QStringList &arguments) const
{
    BoundProcess process;
    process.setProcessEnvironment(environment());
    process.logTo(QProcess::nullDevice());
    process.start(program, arguments);
    const bool isDone = process.waitForFinished() && process.exitCode() == 0;
    return isDone ? process.readAllStandardOutput() : QByteArray();
}

QByteArray WaylandDesktop::control(const QStringList &arguments) const
{
    return outputOf(u"swaymsg"_s,
                    QStringList{u"--raw"_s, u"--socket"_s, controlSocket()} + arguments);
}

QProcessEnvironment WaylandDesktop::environment() const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"DISPLAY"_s);
    for (const auto &[name, value] : {std::pair(u"HOME"_s, m_folder.path()),
                                      {u"XDG_RUNTIME_DIR"_s, m_folder.path()},
                                      {u"WAYLAND_DISPLAY"_s, name()},
                                      {u"QT_QPA_PLATFORM"_s, u"wayland"_s},
                                      {u"SWAYSOCK"_s, controlSocket()},
                                      {u"WLR_BACKENDS"_s, u"headless"_s},
                                      {u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s},
                                      {u"WLR_RENDERER"_s, u"pixman"_s}})
        environment.insert(name, value);
    return environment;
}

} // namespace ostrel::test
