#include "DesktopActions.h"

#include "ContinueOn.h"
#include "FolderText.h"
#include "ProductConstants.h"
#include "Workspace.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>

namespace ostrel {

DesktopActions::DesktopActions(Workspace &workspace, const QString &storageDir, QObject *parent)
    : QObject(parent)
    , m_workspace(workspace)
    , m_storageDir(QDir(storageDir).absolutePath())
{
}

QString DesktopActions::dataFolderText() const
{
    return folderText(m_storageDir, QDir::homePath());
}

void DesktopActions::getHelp()
{
    continueOn(m_workspace.open(supportAddress()), this,
               [this](bool isTaken) { Q_EMIT helpAnswered(isTaken); });
}

void DesktopActions::openWebsite(const QUrl &website)
{
    m_workspace.open(website);
}

void DesktopActions::copyText(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

void DesktopActions::openNotificationSettings()
{
    m_workspace.openNotificationSettings();
}

void DesktopActions::revealDataFolder()
{
    m_workspace.openFolder(m_storageDir);
}

} // namespace ostrel
