#pragma once

#include <QQmlApplicationEngine>
#include <QQmlComponent>

class QQuickWindow;

namespace ostrel {

class AppActions;
class DashboardOverview;
class DesktopActions;
class MonitorDetailModel;
class MonitorListModel;
class Settings;
class SheetOpener;

/// What the main window shows, and what it commands.
struct WindowModels
{
    MonitorListModel &monitors;
    DashboardOverview &overview;
    AppActions &actions;
    MonitorDetailModel &detailModel;
    SheetOpener &opener;
    Settings &settings;
    DesktopActions &desktop;
};

/// Makes the main window. Lives on the main thread.
class MainWindowLoader
{
public:
    /// Begins to look through the faces for text, on another thread.
    MainWindowLoader();

    [[nodiscard]] QQmlApplicationEngine &engine() { return m_engine; }

    /// Loads what the window needs before it has anything to show, so that this can be done while
    /// the data is still being read. The types of its views are loaded on another thread, and may
    /// still be when this returns.
    void prepare();
    /// The window, not shown yet, which lives as long as this; null where it can't be made. The
    /// @p models outlive it.
    [[nodiscard]] QQuickWindow *load(const WindowModels &models);

private:
    /// Runs the event loop while it waits.
    void finishPreparing();

    QQmlApplicationEngine m_engine;
    QQmlComponent m_types;
};

} // namespace ostrel
