#include "FreedesktopWorkspace.h"

#include "ContinueOn.h"
#include "NotificationSettings.h"
#include "ProgramStart.h"

#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QPromise>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

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

QFuture<bool> FreedesktopWorkspace::open(const QUrl &url)
{
    if (!url.isValid() || url.isRelative())
        return QtFuture::makeReadyFuture(false);
    return ask(openUriCall(encoded(url)), encoded(url));
}

bool FreedesktopWorkspace::openFolder(const QString &path)
{
    const QFileInfo folder(path);
    if (!folder.isAbsolute() || !folder.isDir())
        return false;
    const auto isShown = ask(showFoldersCall(encoded(QUrl::fromLocalFile(path))), path);
    return !isShown.isFinished() || isShown.result();
}

bool FreedesktopWorkspace::openNotificationSettings()
{
    const auto commands = notificationSettingsCommands(qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
    return std::ranges::any_of(commands, startDetached);
}

QFuture<bool> FreedesktopWorkspace::openWithProgram(const QString &target) const
{
    return startWatched({u"xdg-open"_s, target}, m_patience);
}

QFuture<bool> FreedesktopWorkspace::ask(const QDBusMessage &call, const QString &target)
{
    if (!m_bus || !m_bus->isConnected())
        return openWithProgram(target);
    const auto reply = m_bus->asyncCall(call, static_cast<int>(m_patience.count()));
    auto *watcher = new QDBusPendingCallWatcher(reply, this);
    auto promise = std::make_shared<QPromise<bool>>();
    promise->start();
    const auto tell = [promise](bool isTaken) {
        promise->addResult(isTaken);
        promise->finish();
    };
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, target, tell] {
        watcher->deleteLater();
        if (watcher->isError())
            continueOn(openWithProgram(target), this, tell);
        else
            tell(true);
    });
    return promise->future();
}

} // namespace ostrel
