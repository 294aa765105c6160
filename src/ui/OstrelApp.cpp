#include "OstrelApp.h"

#include "LoginItem.h"
#include "NotificationCenter.h"

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
{
}

OstrelApp::~OstrelApp() = default;

bool OstrelApp::show()
{
    m_views.addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_views.setInitialProperties({{QStringLiteral("monitors"), QVariant::fromValue(&m_monitors)}});
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
