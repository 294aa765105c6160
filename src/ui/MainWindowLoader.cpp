#include "MainWindowLoader.h"

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

QQuickWindow *MainWindowLoader::load(const QVariantMap &properties)
{
    m_engine.setInitialProperties(properties);
    m_engine.load(mainWindow());
    return qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
}

} // namespace ostrel
