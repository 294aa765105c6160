#include "MainWindowLoader.h"

#include "AppActions.h"
#include "DashboardOverview.h"
#include "DesktopActions.h"
#include "MonitorDetailModel.h"
#include "MonitorListModel.h"
#include "Settings.h"
#include "SheetOpener.h"
#include "ThemeFonts.h"

#include <QQuickWindow>
#include <QThreadPool>

namespace ostrel {

namespace {

QUrl mainWindow()
{
    return QUrl(QStringLiteral("qrc:/qt/qml/Ostrel/MainWindow.qml"));
}

} // namespace

MainWindowLoader::MainWindowLoader()
    : m_types(&m_engine)
{
    QThreadPool::globalInstance()->start(&ThemeFonts::findFaces);
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
}

void MainWindowLoader::prepare()
{
    m_types.loadUrl(mainWindow());
    ThemeFonts::loadFirstFaces();
}

QQuickWindow *MainWindowLoader::load(const WindowModels &models)
{
    m_engine.setInitialProperties({
        {QStringLiteral("monitors"), QVariant::fromValue(&models.monitors)},
        {QStringLiteral("overview"), QVariant::fromValue(&models.overview)},
        {QStringLiteral("actions"), QVariant::fromValue(&models.actions)},
        {QStringLiteral("detailModel"), QVariant::fromValue(&models.detailModel)},
        {QStringLiteral("opener"), QVariant::fromValue(&models.opener)},
        {QStringLiteral("settings"), QVariant::fromValue(&models.settings)},
        {QStringLiteral("desktop"), QVariant::fromValue(&models.desktop)},
    });
    m_engine.load(mainWindow());
    return qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
}

} // namespace ostrel
