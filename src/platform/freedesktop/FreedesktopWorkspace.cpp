#include "FreedesktopWorkspace.h"

#include "DescriptorLimit.h"
#include "MessageBus.h"
#include "NotificationSettings.h"

#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// Starts @p command, which outlives this program; false if there is no such program.
bool startDetached(const QStringList &command)
{
    if (QStandardPaths::findExecutable(command.first()).isEmpty())
        return false;
    const QStringList limited = withInitialDescriptorLimit(command);
    QProcess process;
    process.setProgram(limited.first());
    process.setArguments(limited.sliced(1));
    process.setProcessEnvironment(environmentOfPrograms());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

bool openWithProgram(const QString &target)
{
    return startDetached({u"xdg-open"_s, target});
}

QDBusMessage openUriCall(const QString &address)
{
    const QString noParentWindow;
    QDBusMessage message = QDBusMessage::createMethodCall(
        u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
        u"org.freedesktop.portal.OpenURI"_s, u"OpenURI"_s);
    message.setArguments({noParentWindow, address, QVariantMap()});
    return message;
}

QDBusMessage showFoldersCall(const QString &address)
{
    const QString noStartupId;
    const auto name = u"org.freedesktop.FileManager1"_s;
    QDBusMessage message = QDBusMessage::createMethodCall(name, u"/org/freedesktop/FileManager1"_s,
                                                          name, u"ShowFolders"_s);
    message.setArguments({QStringList{address}, noStartupId});
    return message;
}

QString encoded(const QUrl &url)
{
    return url.toString(QUrl::FullyEncoded);
}

} // namespace

FreedesktopWorkspace::FreedesktopWorkspace(std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent)
    , m_patience(patience)
{
}

bool FreedesktopWorkspace::open(const QUrl &url)
{
    if (!url.isValid() || url.isRelative())
        return false;
    return ask(openUriCall(encoded(url)), encoded(url));
}

bool FreedesktopWorkspace::openFolder(const QString &path)
{
    const QFileInfo folder(path);
    if (!folder.isAbsolute() || !folder.isDir())
        return false;
    return ask(showFoldersCall(encoded(QUrl::fromLocalFile(path))), path);
}

bool FreedesktopWorkspace::openNotificationSettings()
{
    const auto commands = notificationSettingsCommands(qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
    return std::ranges::any_of(commands, startDetached);
}

bool FreedesktopWorkspace::ask(const QDBusMessage &call, const QString &target)
{
    if (!m_bus || !m_bus->isConnected())
        return openWithProgram(target);
    const auto reply = m_bus->asyncCall(call, static_cast<int>(m_patience.count()));
    auto *watcher = new QDBusPendingCallWatcher(reply, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, target] {
        watcher->deleteLater();
        if (watcher->isError())
            openWithProgram(target);
    });
    return true;
}

} // namespace ostrel
