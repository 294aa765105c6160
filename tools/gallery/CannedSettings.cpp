#include "CannedSettings.h"

#include "MonitorStore.h"
#include "NoDesktop.h"

namespace ostrel {

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
