#pragma once

#include "AppDelegate.h"
#include "FaviconService.h"
#include "MonitorStore.h"
#include "MonitoringEngine.h"
#include "StatusBarItem.h"
#include "WindowModels.h"

#include <QObject>
#include <QTimer>

#include <memory>

class QQuickWindow;

namespace ostrel {

class FolderOwnership;
class LoginItem;
class MainWindowLoader;
class MonitorCheck;
class MotionPreference;
class Network;
class NetworkPresence;
class NotificationCenter;
class NotificationManager;
class Sleeper;
class StatusBarHost;
class WakeSignal;
class Workspace;

/// What the application is made on. All of it outlives the application.
struct AppServices
{
    MonitorCheck &httpCheck;
    MonitorCheck &portCheck;
    NotificationCenter &notificationCenter;
    NotificationManager &notifications;
    WakeSignal &wakeSignal;
    NetworkPresence &networkPresence;
    Sleeper &sleeper;
    LoginItem &loginItem;
    Workspace &workspace;
    MotionPreference &motion;
    StatusBarHost &statusBarHost;
    Network &network;                           ///< Where the sites' icons and titles come from.
    WorkThread::Work prepareIconThread = {};    ///< Called first on the thread that reads those.
    FolderOwnership *folderOwnership = nullptr; ///< Null if nobody else could have the folder.
};

/// The application: makes the delegate, the one store and the one engine, in this order, and shows
/// the main window. Lives from start to exit, on the main thread.
class OstrelApp : public QObject
{
    Q_OBJECT

public:
    /// On the folder @p storageDir, which holds @p records.
    OstrelApp(std::unique_ptr<MainWindowLoader> views, const QString &storageDir,
              StoredRecords records, const AppServices &services);
    ~OstrelApp() override;

    /// Shows the main window; false where it can't be made.
    [[nodiscard]] bool show();

    [[nodiscard]] const MonitorStore &store() const { return m_store; }
    [[nodiscard]] AppDelegate &delegate() { return m_delegate; }
    [[nodiscard]] StatusBarItem &statusBarItem() { return m_statusBarItem; }

private:
    /// Calls contentAppeared() each time the main window's content has appeared: once its first
    /// frame is on the screen, so that nothing holds that up, or where the desktop doesn't let it
    /// be drawn (minimised, another workspace), soon after the window was shown.
    void watchAppearance(QQuickWindow &window);
    void contentAppeared();
    void connectStatusBarItem();

    /// Gives the new monitor of the website at @p address the title of its page, once that is
    /// known, and finds the site's icon before the views ask for it.
    void lookUpSite(const QUuid &monitorId, const QString &address);

    AppServices m_services;
    std::unique_ptr<MainWindowLoader> m_views; ///< First to be made, and first to go.
    AppDelegate m_delegate;
    MonitorStore m_store;
    MonitoringEngine m_engine;
    StatusBarItem m_statusBarItem;
    WindowModels m_models;
    FaviconService m_icons;
    QTimer m_appearance; ///< Runs from a window's being shown to its first frame.
};

} // namespace ostrel
