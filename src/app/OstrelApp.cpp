#include "OstrelApp.h"

#include "ContinueOn.h"
#include "DesktopPreferences.h"
#include "FaviconImage.h"
#include "LoginItem.h"
#include "MainWindowLoader.h"
#include "NotificationCenter.h"

#include <QCoreApplication>
#include <QQuickWindow>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto longestWaitForAFrame = 1s;

} // namespace

OstrelApp::OstrelApp(std::unique_ptr<MainWindowLoader> views, const QString &storageDir,
                     StoredRecords records, const AppServices &services)
    : m_services(services)
    , m_views(std::move(views))
    , m_store(storageDir, std::move(records), {.ownership = services.folderOwnership})
    , m_engine({
          .store = m_store,
          .httpCheck = services.httpCheck,
          .portCheck = services.portCheck,
          .notifications = services.notifications,
          .wakeSignal = services.wakeSignal,
          .networkPresence = services.networkPresence,
          .sleeper = services.sleeper,
      })
    , m_statusBarItem(m_store, services.statusBarHost)
    , m_models(m_store, m_engine, services.networkPresence, services.loginItem, services.workspace)
    , m_requests(m_store, m_models.commands())
    , m_icons(storageDir + u"/favicons"_s, services.network, services.prepareIconThread)
{
    connect(m_models.form(), &MonitorForm::websiteCreated, this, &OstrelApp::lookUpSite);
    connectStatusBarItem();
    services.notificationCenter.onClick(
        [this](const QUuid &monitorId, const QByteArray &token) { openMonitor(monitorId, token); });
}

OstrelApp::~OstrelApp()
{
    m_services.notificationCenter.onClick({});
    m_views.reset(); // They show what is destroyed after them.
}

bool OstrelApp::show()
{
    FaviconImage::useIcons(m_views->engine(), m_icons);
    connect(&m_views->engine(), &QQmlEngine::quit, qApp, &QCoreApplication::quit);
    QQuickWindow *window = m_views->load(m_models);
    if (!window)
        return false;

    const auto takePreferences = [this, window] {
        const DesktopPreferences::Values &wanted = m_services.preferences.values();
        window->setProperty("reducedMotion", wanted.isMotionReduced);
        window->setProperty("highContrast", wanted.isContrastHigh);
        m_models.detail()->setCountsToTwelve(wanted.countsToTwelve);
    };
    takePreferences();
    connect(&m_services.preferences, &DesktopPreferences::valuesChanged, window, takePreferences);
    watchAppearance(*window);
    m_delegate.setMainWindow(window);
    m_delegate.reopen();
    return true;
}

void OstrelApp::addMonitor(const QByteArray &activationToken)
{
    m_delegate.reopen(activationToken);
    Q_EMIT m_models.opener()->createRequested();
}

void OstrelApp::openMonitor(const QUuid &monitorId, const QByteArray &activationToken)
{
    m_delegate.reopen(activationToken);
    if (m_store.monitor(monitorId))
        Q_EMIT m_models.pageRequested(monitorId);
}

void OstrelApp::connectStatusBarItem()
{
    connect(&m_statusBarItem, &StatusBarItem::helpRequested, m_models.desktop(),
            &DesktopActions::getHelp);
    // The window says how to get help without a mail program.
    connect(m_models.desktop(), &DesktopActions::helpAnswered, &m_delegate, [this](bool isTaken) {
        if (!isTaken)
            m_delegate.reopen();
    });
    connect(&m_statusBarItem, &StatusBarItem::openRequested, &m_delegate,
            [this] { m_delegate.reopen(); });
    connect(&m_statusBarItem, &StatusBarItem::notificationClicked, this,
            [this](const QUuid &monitorId) { openMonitor(monitorId); });
    connect(&m_statusBarItem, &StatusBarItem::quitRequested, qApp, &QCoreApplication::quit);
}

void OstrelApp::watchAppearance(QQuickWindow &window)
{
    m_appearance.setSingleShot(true);
    connect(&m_appearance, &QTimer::timeout, this, &OstrelApp::contentAppeared);
    connect(&window, &QWindow::visibleChanged, &m_appearance, [this](bool isVisible) {
        if (isVisible)
            m_appearance.start(longestWaitForAFrame);
    });
    connect(&window, &QQuickWindow::frameSwapped, &m_appearance, [this] {
        // Only after the frame has been completed.
        if (m_appearance.isActive())
            m_appearance.start(0);
    });
}

void OstrelApp::contentAppeared()
{
    m_delegate.noteAppearance();
    m_engine.start();
    m_services.notificationCenter.requestAuthorization();
    m_services.loginItem.registerItem();
    m_statusBarItem.show();
}

void OstrelApp::lookUpSite(const QUuid &monitorId, const QString &address)
{
    static_cast<void>(m_icons.icon(address)); // The icon is cached for the views.
    continueOn(m_icons.pageTitle(address), this,
               [this, monitorId](const std::optional<QString> &title) {
                   if (title)
                       m_models.form()->applyTitle(monitorId, *title);
               });
}

} // namespace ostrel
