#include "GalleryWindow.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QUrl>

#include <chrono>

namespace ostrel {

GalleryWindow::GalleryWindow(const QString &page)
{
    engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    setResizeMode(QQuickView::SizeViewToRootObject);
    setTitle(page);
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ostrel/Gallery/%1.qml").arg(page)));
}

bool GalleryWindow::isUsable() const
{
    return rootObject() != nullptr;
}

void GalleryWindow::awaitActive()
{
    using namespace std::chrono_literals;
    requestActivate();
    const QDeadlineTimer deadline(1s);
    while (!isActive() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

bool GalleryWindow::save(const QString &path)
{
    return grabWindow().save(path, "PNG");
}

QStringList galleryPages()
{
    return {QStringLiteral("ComponentsPage"), QStringLiteral("SymbolsPage")};
}

} // namespace ostrel
