#include "GalleryWindow.h"

#include "CannedDetail.h"
#include "CannedForm.h"

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
    const QString sample = page.section(u'-', 1);
    if (!sample.isEmpty())
        setInitialProperties({{QStringLiteral("sample"), sample}});
    setSource(
        QUrl(QStringLiteral("qrc:/qt/qml/Ostrel/Gallery/%1.qml").arg(page.section(u'-', 0, 0))));
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
    // The first frame lays the page out, which may change its size.
    grabWindow();
    QCoreApplication::processEvents();
    return grabWindow().save(path, "PNG");
}

QStringList galleryPages()
{
    QStringList pages = {QStringLiteral("ComponentsPage"), QStringLiteral("SymbolsPage"),
                         QStringLiteral("SettingsPage"), QStringLiteral("SmallDetailPage-down"),
                         QStringLiteral("SmallFormPage-website")};
    for (const QString &sample : CannedDetail::samples())
        pages += QStringLiteral("DetailPage-") + sample;
    for (const QString &sample : CannedForm::samples())
        pages += QStringLiteral("FormPage-") + sample;
    return pages;
}

} // namespace ostrel
