#include "OstrelApp.h"

#include "FaviconImage.h"
#include "LoginItem.h"
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
    , m_monitors(m_store)
    , m_overview(m_store)
    , m_actions(m_store, m_engine)
    , m_icons(storageDir + QStringLiteral("/favicons"), services.fetchIcon)
{
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
    });
    connect(&m_views, &QQmlEngine::quit, qApp, &QCoreApplication::quit);
    m_views.load(QUrl(QStringLiteral("qrc:/qt/qml/Ostrel/MainWindow.qml")));
    auto *window = qobject_cast<QQuickWindow *>(m_views.rootObjects().value(0));
    if (!window)
        return false;

    connect(window, &QWindow::visibleChanged, this, [this](bool isVisible) {
        if (isVisible)
            contentAppeared();
    });
    m_delegate.setMainWindow(window);
    m_delegate.reopen();
    return true;
}

void OstrelApp::contentAppeared()
{
    m_engine.start();
    m_services.notificationCenter.requestAuthorization();
    m_services.loginItem.registerItem();
}

} // namespace ostrel
