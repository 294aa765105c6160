#pragma once

#include "AppActions.h"
#include "DashboardOverview.h"
#include "DesktopActions.h"
#include "DesktopFakes.h"
#include "MainWindowLoader.h"
#include "MonitorDetailModel.h"
#include "MonitorListModel.h"
#include "ScriptedEngine.h"
#include "Settings.h"
#include "SheetOpener.h"

#include <QQuickItem>
#include <QQuickWindow>

namespace ostrel::bench {

/// What this thread has computed so far, in milliseconds.
[[nodiscard]] double threadTime();

/// The program's whole window over a store, with an engine that checks nothing. Nothing in it moves
/// by itself.
class BenchWindow
{
public:
    /// @p store outlives the window.
    explicit BenchWindow(MonitorStore &store);

    /// Whether the window could be made and is drawn.
    [[nodiscard]] bool show();
    /// Opens the page of the monitor in row @p row.
    void open(int row);
    /// The item with this object name, which is there.
    [[nodiscard]] QQuickItem &item(const QString &name) const;

    /// Runs the event loop until what has changed is drawn, and what follows from that. Sleeps
    /// between events: turning while it waits would count as the thread's work.
    void settle();
    /// Runs the event loop until the next frame is drawn.
    void drawFrame();

private:
    test::ScriptedEngine m_scripted;
    test::RecordingLoginItem m_loginItem;
    test::RecordingWorkspace m_workspace;
    MonitorListModel m_monitors;
    DashboardOverview m_overview;
    AppActions m_actions;
    MonitorDetailModel m_detailModel;
    MonitorForm m_form;
    SheetOpener m_opener;
    Settings m_settings;
    DesktopActions m_desktop;
    MainWindowLoader m_views;
    QQuickWindow *m_window = nullptr;
};

/// The main() of a bench that opens such a window: runs @p bench in an application.
int runInWindow(int argc, char **argv, int (*bench)());

} // namespace ostrel::bench
