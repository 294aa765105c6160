#include "MainWindowLoader.h"

#include "ThemeFonts.h"
#include "WindowModels.h"

#include <QEventLoop>
#include <QQuickWindow>

namespace ostrel {

namespace {

QUrl viewUrl(const QString &name)
{
    return QUrl(QStringLiteral("qrc:/qt/qml/Ostrel/%1.qml").arg(name));
}

QUrl mainWindow()
{
    return viewUrl(QStringLiteral("MainWindow"));
}

} // namespace

MainWindowLoader::MainWindowLoader()
    : m_faces(std::in_place)
    , m_types(&m_engine)
{
    m_faces->post(&ThemeFonts::findFaces);
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
}

void MainWindowLoader::prepare()
{
    m_types.loadUrl(mainWindow(), QQmlComponent::Asynchronous);
}

QQuickWindow *MainWindowLoader::load(WindowModels &models)
{
    finishPreparing();
    m_faces.reset();
    m_engine.setInitialProperties({
        {QStringLiteral("monitors"), QVariant::fromValue(&models.monitors)},
        {QStringLiteral("dashboardModel"), QVariant::fromValue(&models.dashboardModel)},
        {QStringLiteral("actions"), QVariant::fromValue(&models.actions)},
        {QStringLiteral("detailModel"), QVariant::fromValue(&models.detailModel)},
        {QStringLiteral("opener"), QVariant::fromValue(&models.opener)},
        {QStringLiteral("settings"), QVariant::fromValue(&models.settings)},
        {QStringLiteral("desktop"), QVariant::fromValue(&models.desktop)},
        {QStringLiteral("notice"), QVariant::fromValue(&models.notice)},
    });
    m_engine.load(mainWindow());
    return qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
}

void MainWindowLoader::finishPreparing()
{
    QEventLoop loop;
    QObject::connect(&m_types, &QQmlComponent::statusChanged, &loop, &QEventLoop::quit);
    if (m_types.isLoading())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace ostrel
