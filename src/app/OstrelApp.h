#pragma once

#include "AppDelegate.h"
#include "FaviconService.h"
#include "MonitorRequests.h"
#include "MonitorStore.h"
#include "MonitoringEngine.h"
#include "StatusBarItem.h"
#include "WindowModels.h"

#include <QObject>
#include <QTimer>

#include <memory>

class QQuickWindow;

namespace ostrel {

class DesktopPreferences;
class FolderOwnership;
class LoginItem;
class MainWindowLoader;
class MonitorCheck;
class Network;
class NetworkPresence;
class NotificationCenter;
class NotificationManager;
class Sleeper;
class StatusBarHost;
class WakeSignal;
class Workspace;

/// The services that the application uses. All of them must outlive the application.
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
    const DesktopPreferences &preferences;
    StatusBarHost &statusBarHost;
    Network &network;                           ///< The source of the sites' icons and titles.
    WorkThread::Work prepareIconThread = {};    ///< Called first on the thread that decodes them.
    FolderOwnership *folderOwnership = nullptr; ///< Null if no other program could own the folder.
};

/// The application: creates the delegate, the one store and the one engine, in this order, and
/// shows the main window. Lives from start to exit, on the main thread.
class OstrelApp : public QObject
{
    Q_OBJECT

public:
    /// Uses the folder @p storageDir, whose content is @p records.
    OstrelApp(std::unique_ptr<MainWindowLoader> views, const QString &storageDir,
              StoredRecords records, const AppServices &services);
    ~OstrelApp() override;

    /// Shows the main window; false if it can't be created.
    [[nodiscard]] bool show();

    /// Shows the window and, unless a form is open, the one for a new monitor. For
    /// @p activationToken see AppDelegate.
    void addMonitor(const QByteArray &activationToken = {});

    /// Shows the window with the page of that monitor; as it was, if there is none. For
    /// @p activationToken see AppDelegate.
    void openMonitor(const QUuid &monitorId, const QByteArray &activationToken = {});

    [[nodiscard]] const MonitorStore &store() const { return m_store; }
    /// Answers the requests of commands.
    [[nodiscard]] MonitorRequests &requests() { return m_requests; }
    [[nodiscard]] AppDelegate &delegate() { return m_delegate; }
    [[nodiscard]] StatusBarItem &statusBarItem() { return m_statusBarItem; }

private:
    /// Calls contentAppeared() each time the main window's content has appeared: once its first
    /// frame is on the screen, so that nothing delays that, or, if the desktop doesn't let it draw
    /// (minimised, another workspace), soon after the window was shown.
    void watchAppearance(QQuickWindow &window);
    void contentAppeared();
    void connectStatusBarItem();

    /// Gives the new monitor of the website at @p address the title of its page, once that is
    /// known, and fetches the site's icon before the views request it.
    void lookUpSite(const QUuid &monitorId, const QString &address);

    AppServices m_services;
    std::unique_ptr<MainWindowLoader> m_views; ///< Created first, and destroyed first.
    AppDelegate m_delegate;
    MonitorStore m_store;
    MonitoringEngine m_engine;
    StatusBarItem m_statusBarItem;
    WindowModels m_models;
    MonitorRequests m_requests;
    FaviconService m_icons;
    QTimer m_appearance; ///< Runs from showing a window to its first frame.
};

} // namespace ostrel
