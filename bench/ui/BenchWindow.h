#pragma once

#include "DesktopFakes.h"
#include "MainWindowLoader.h"
#include "ScriptedEngine.h"
#include "WindowModels.h"

#include <QQuickItem>
#include <QQuickWindow>

namespace ostrel::bench {

/// The processor time that this thread has used so far, in milliseconds.
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
    /// The item with this object name, which must exist.
    [[nodiscard]] QQuickItem &item(const QString &name) const;

    /// Runs the event loop until all changes, and their consequences, are drawn. Sleeps between
    /// events: busy waiting would count as the thread's work.
    void settle();
    /// Runs the event loop until the next frame is drawn.
    void drawFrame();

private:
    test::ScriptedEngine m_scripted;
    test::RecordingLoginItem m_loginItem;
    test::RecordingWorkspace m_workspace;
    WindowModels m_models;
    MainWindowLoader m_views;
    QQuickWindow *m_window = nullptr;
};

/// The main() of a bench that opens such a window: runs @p bench in an application.
int runInWindow(int argc, char **argv, int (*bench)());

} // namespace ostrel::bench
