#include "WindowModels.h"

#include "MonitorStore.h"

namespace ostrel {

WindowModels::WindowModels(MonitorStore &store, MonitoringEngine &engine,
                           const NetworkPresence &presence, LoginItem &loginItem,
                           Workspace &workspace, const WallClock &now)
    : monitors(store)
    , overview(store)
    , actions(store, engine)
    , detailModel(store, now)
    , form(store, engine, now)
    , opener(store, form)
    , settings(loginItem)
    , desktop(workspace, store.storageDir())
    , notice(store, presence)
{
}

} // namespace ostrel
