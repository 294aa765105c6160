#pragma once

#include "AppActions.h"
#include "DashboardModel.h"
#include "DesktopActions.h"
#include "MonitorCommands.h"
#include "MonitorDetailModel.h"
#include "MonitorForm.h"
#include "MonitorListModel.h"
#include "Settings.h"
#include "SheetOpener.h"
#include "SidebarNotice.h"

namespace ostrel {

class LoginItem;
class MonitorStore;
class MonitoringEngine;
class NetworkPresence;
class Workspace;

/// The main window's models and commands. Lives on the main thread, and must outlive the window.
struct WindowModels
{
    /// All arguments must outlive this object.
    WindowModels(MonitorStore &store, MonitoringEngine &engine, const NetworkPresence &presence,
                 LoginItem &loginItem, Workspace &workspace, const WallClock &now = systemNow);

    MonitorCommands commands;
    MonitorListModel monitors;
    DashboardModel dashboardModel;
    AppActions actions;
    MonitorDetailModel detailModel;
    MonitorForm form;
    SheetOpener opener;
    Settings settings;
    DesktopActions desktop;
    SidebarNotice notice;
};

} // namespace ostrel
