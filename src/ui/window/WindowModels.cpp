#include "WindowModels.h"

#include "MonitorStore.h"

namespace ostrel {

WindowModels::WindowModels(MonitorStore &store, MonitoringEngine &engine,
                           const NetworkPresence &presence, LoginItem &loginItem,
                           Workspace &workspace, const WallClock &now)
    : commands(store, engine)
    , monitors(store)
    , dashboardModel(store)
    , actions(store, commands)
    , detailModel(store, now)
    , form(store, now)
    , opener(store, form)
    , settings(loginItem)
    , desktop(workspace, store.storageDir())
    , notice(store, presence)
{
    QObject::connect(&form, &MonitorForm::created, &commands, &MonitorCommands::create);
    QObject::connect(&form, &MonitorForm::edited, &commands, &MonitorCommands::update);
}

} // namespace ostrel
