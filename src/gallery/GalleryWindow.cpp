#include "GalleryWindow.h"

#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QUrl>

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

bool GalleryWindow::save(const QString &path)
{
    return grabWindow().save(path, "PNG");
}

QStringList galleryPages()
{
    return {QStringLiteral("ComponentsPage"), QStringLiteral("SymbolsPage")};
}

} // namespace ostrel
