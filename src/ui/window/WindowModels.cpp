#include "WindowModels.h"

#include "MonitorStore.h"

namespace ostrel {

WindowModels::WindowModels(MonitorStore &store, MonitoringEngine &engine,
                           const NetworkPresence &presence, LoginItem &loginItem,
                           Workspace &workspace, const WallClock &now)
    : m_commands(store, engine)
    , m_monitors(store)
    , m_dashboard(store)
    , m_detail(store, now)
    , m_actions(store, m_commands)
    , m_form(store, now)
    , m_opener(store, m_form)
    , m_settings(loginItem)
    , m_desktop(workspace, store.storageDir())
    , m_notice(store, presence)
{
    connect(&m_form, &MonitorForm::created, &m_commands, &MonitorCommands::create);
    connect(&m_desktop, &DesktopActions::helpAnswered, &m_notice, &SidebarNotice::takeHelpAnswer);
    connect(&m_form, &MonitorForm::edited, &m_commands, &MonitorCommands::update);
    connect(&m_commands, &MonitorCommands::checkingChanged, &m_monitors,
            &MonitorListModel::setChecking);
    connect(&m_commands, &MonitorCommands::checkingChanged, &m_detail,
            &MonitorDetailModel::setChecking);
}

} // namespace ostrel
