#include "MainWindowLoader.h"

#include "ThemeFonts.h"
#include "WindowModels.h"

#include <QEventLoop>
#include <QQuickWindow>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QUrl viewUrl(const QString &name)
{
    return QUrl(u"qrc:/qt/qml/Ostrel/%1.qml"_s.arg(name));
}

QUrl mainWindow()
{
    return viewUrl(u"MainWindow"_s);
}

} // namespace

MainWindowLoader::MainWindowLoader()
    : m_faces(std::in_place)
    , m_types(&m_engine)
{
    m_faces->post(&ThemeFonts::findFaces);
    m_engine.addImportPath(u"qrc:/qt/qml"_s);
}

void MainWindowLoader::prepare()
{
    m_types.loadUrl(mainWindow(), QQmlComponent::Asynchronous);
}

QQuickWindow *MainWindowLoader::load(WindowModels &models)
{
    finishPreparing();
    m_faces.reset();
    m_engine.setInitialProperties({{u"models"_s, QVariant::fromValue(&models)}});
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
