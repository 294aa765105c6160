#pragma once

#include "AppActions.h"
#include "AppDelegate.h"
#include "DashboardOverview.h"
#include "FaviconService.h"
#include "MonitorListModel.h"
#include "MonitorStore.h"
#include "MonitoringEngine.h"

#include <QObject>
#include <QQmlApplicationEngine>

namespace ostrel {

class LoginItem;
class MonitorCheck;
class NotificationCenter;
class NotificationManager;
class Sleeper;
class WakeSignal;

/// What the application is made on. All of it outlives the application.
struct AppServices
{
    MonitorCheck &httpCheck;
    MonitorCheck &portCheck;
    NotificationCenter &notificationCenter;
    NotificationManager &notifications;
    WakeSignal &wakeSignal;
    Sleeper &sleeper;
    LoginItem &loginItem;
    Fetch fetchIcon; ///< How the sites' icons and titles reach the program.
};

/// The application: makes the delegate, the one store and the one engine, in this order, and shows
/// the main window. Lives from start to exit, on the main thread.
class OstrelApp : public QObject
{
    Q_OBJECT

public:
    OstrelApp(const QString &storageDir, const AppServices &services);
    ~OstrelApp() override;

    /// Shows the main window; false where it can't be made.
    [[nodiscard]] bool show();

    [[nodiscard]] AppDelegate &delegate() { return m_delegate; }

private:
    /// Runs each time the main window's content appears.
    void contentAppeared();

    AppServices m_services;
    AppDelegate m_delegate;
    MonitorStore m_store;
    MonitoringEngine m_engine;
    MonitorListModel m_monitors;
    DashboardOverview m_overview;
    AppActions m_actions;
    FaviconService m_icons;
    QQmlApplicationEngine m_views;
};

} // namespace ostrel
