#include "OstrelApp.h"

#include "ContinueOn.h"
#include "FaviconImage.h"
#include "LoginItem.h"
#include "MotionPreference.h"
#include "NotificationCenter.h"

#include <QCoreApplication>
#include <QQuickWindow>

namespace ostrel {

OstrelApp::OstrelApp(const QString &storageDir, const AppServices &services)
    : m_services(services)
    , m_store(storageDir)
    , m_engine({
          .store = m_store,
          .httpCheck = services.httpCheck,
          .portCheck = services.portCheck,
          .notifications = services.notifications,
          .wakeSignal = services.wakeSignal,
          .sleeper = services.sleeper,
      })
    , m_statusBarItem(m_store, services.statusBarHost)
    , m_monitors(m_store)
    , m_overview(m_store)
    , m_actions(m_store, m_engine)
    , m_detailModel(m_store)
    , m_form(m_store, m_engine)
    , m_opener(m_store, m_form)
    , m_settings(services.loginItem)
    , m_desktop(services.workspace, storageDir)
    , m_icons(storageDir + QStringLiteral("/favicons"), services.fetchIcon)
{
    connect(&m_form, &MonitorForm::websiteCreated, this, &OstrelApp::lookUpSite);
    connectStatusBarItem();
}

OstrelApp::~OstrelApp() = default;

bool OstrelApp::show()
{
    m_views.addImportPath(QStringLiteral("qrc:/qt/qml"));
    FaviconImage::useIcons(m_views, m_icons);
    m_views.setInitialProperties({
        {QStringLiteral("monitors"), QVariant::fromValue(&m_monitors)},
        {QStringLiteral("overview"), QVariant::fromValue(&m_overview)},
        {QStringLiteral("actions"), QVariant::fromValue(&m_actions)},
        {QStringLiteral("detailModel"), QVariant::fromValue(&m_detailModel)},
        {QStringLiteral("opener"), QVariant::fromValue(&m_opener)},
        {QStringLiteral("settings"), QVariant::fromValue(&m_settings)},
        {QStringLiteral("desktop"), QVariant::fromValue(&m_desktop)},
        {QStringLiteral("reducedMotion"), m_services.motion.isReduced()},
    });
    connect(&m_views, &QQmlEngine::quit, qApp, &QCoreApplication::quit);
    m_views.load(QUrl(QStringLiteral("qrc:/qt/qml/Ostrel/MainWindow.qml")));
    auto *window = qobject_cast<QQuickWindow *>(m_views.rootObjects().value(0));
    if (!window)
        return false;

    connect(&m_services.motion, &MotionPreference::isReducedChanged, window, [this, window] {
        window->setProperty("reducedMotion", m_services.motion.isReduced());
    });
    connect(window, &QWindow::visibleChanged, this, [this](bool isVisible) {
        if (isVisible)
            contentAppeared();
    });
    m_delegate.setMainWindow(window);
    m_delegate.reopen();
    m_statusBarItem.show();
    return true;
}

void OstrelApp::connectStatusBarItem()
{
    connect(&m_statusBarItem, &StatusBarItem::helpRequested, &m_desktop, &DesktopActions::getHelp);
    connect(&m_statusBarItem, &StatusBarItem::openRequested, &m_delegate,
            [this] { m_delegate.reopen(); });
    connect(&m_statusBarItem, &StatusBarItem::quitRequested, qApp, &QCoreApplication::quit);
}

void OstrelApp::contentAppeared()
{
    m_engine.start();
    m_services.notificationCenter.requestAuthorization();
    m_services.loginItem.registerItem();
}

void OstrelApp::lookUpSite(const QUuid &monitorId, const QString &address)
{
    static_cast<void>(m_icons.icon(address)); // What it finds is kept for the views.
    continueOn(m_icons.pageTitle(address), this,
               [this, monitorId](const std::optional<QString> &title) {
                   if (title)
                       m_form.applyTitle(monitorId, *title);
               });
}

} // namespace ostrel
