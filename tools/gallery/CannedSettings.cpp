#include "CannedSettings.h"

#include "LoginItem.h"
#include "MonitorStore.h"
#include "NoWorkspace.h"

#include <QUrl>

namespace ostrel {

namespace {

class NoLoginItem : public LoginItem
{
public:
    bool registerItem() override { return false; }
    bool unregisterItem() override { return false; }
};

/// A fresh folder, in which preferences are kept from now on.
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

} // namespace

struct CannedSettings::Parts
{
    PreferencesFolder folder;
    NoLoginItem loginItem;
    NoWorkspace workspace;
    Settings settings{loginItem};
    DesktopActions actions{workspace, MonitorStore::defaultStorageDir()};
};

CannedSettings::CannedSettings(QObject *parent)
    : QObject(parent)
    , m_parts(std::make_unique<Parts>())
{
}

CannedSettings::~CannedSettings() = default;

Settings *CannedSettings::settings()
{
    return &m_parts->settings;
}

DesktopActions *CannedSettings::actions()
{
    return &m_parts->actions;
}

} // namespace ostrel
