#pragma once

#include "LoginItem.h"
#include "Workspace.h"

#include <QSettings>
#include <QTemporaryDir>

namespace ostrel {

/// Opens nothing: clicks in the gallery have no effect outside it.
class NoWorkspace : public Workspace
{
public:
    QFuture<bool> open(const QUrl & /*url*/) override { return QtFuture::makeReadyFuture(true); }
    bool openFolder(const QString & /*path*/) override { return false; }
    bool openNotificationSettings() override { return false; }
};

class NoLoginItem : public LoginItem
{
public:
    bool registerItem() override { return false; }
    bool unregisterItem() override { return false; }
};

/// Keeps the preferences of all objects made after it in a folder of its own.
class PreferencesFolder
{
public:
    PreferencesFolder()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    }

private:
    QTemporaryDir m_folder;
};

} // namespace ostrel
