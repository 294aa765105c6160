#include "GalleryWindow.h"

#include "CannedDetail.h"
#include "CannedForm.h"
#include "CannedIcons.h"
#include "CannedWindow.h"
#include "FaviconImage.h"
#include "GalleryGesture.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>

#include <chrono>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// Longer than any fade of a control that a gesture starts.
constexpr auto longestFade = std::chrono::milliseconds(250);

/// The part of a page's name before the "-": the file.
QString fileOf(const QString &page)
{
    return page.section(u'-', 0, 0);
}

/// The part between the "-" and the "+".
QString sampleOf(const QString &page)
{
    return page.section(u'-', 1).section(u'+', 0, 0);
}

/// The part after the "+".
QString gestureOf(const QString &page)
{
    return page.section(u'+', 1);
}

/// Keeps the user's own preferences from having an effect on the gallery.
void keepPreferencesApart()
{
    static const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
}

QStringList pagesOf(const char *file, const QStringList &samples)
{
    QStringList pages;
    for (const QString &sample : samples)
        pages += QLatin1String(file) + QLatin1Char('-') + sample;
    return pages;
}

} // namespace

GalleryWindow::GalleryWindow(const QString &page)
    : m_gesture(gestureOf(page))
{
    if (!galleryPages().contains(page))
        return;
    keepPreferencesApart();
    engine()->addImportPath(u"qrc:/qt/qml"_s);
    FaviconImage::useIcons(*engine(), cannedIcons(engine()));
    setResizeMode(QQuickView::SizeViewToRootObject);
    setTitle(page);
    if (const QString sample = sampleOf(page); !sample.isEmpty())
        setInitialProperties({{u"sample"_s, sample}});
    setSource(QUrl(u"qrc:/qt/qml/Ostrel/Gallery/%1.qml"_s.arg(fileOf(page))));
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

void GalleryWindow::performGesture()
{
    grabWindow();
    if (m_gesture.isEmpty())
        return;
    GalleryGesture::perform(m_gesture, *this);
    // Colours fade to their new values.
    const QDeadlineTimer settled(longestFade);
    while (!settled.hasExpired())
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
    const QStringList small = {
        u"empty"_s,     u"one-down"_s,    u"one-down+form"_s, u"many"_s,        u"long"_s,
        u"detail-up"_s, u"detail-down"_s, u"detail-slow"_s,   u"detail-long"_s,
    };
    const QStringList large = {
        u"empty"_s, u"one-down"_s,  u"one-down+form"_s, u"many"_s,
        u"long"_s,  u"detail-up"_s, u"detail-long"_s,
    };
    const QStringList contrast = {
        u"one-down"_s,  u"one-down+form"_s, u"one-down+menu"_s,
        u"detail-up"_s, u"detail-slow"_s,   u"detail-checking"_s,
    };
    return QStringList{u"ComponentsPage"_s, u"SidebarPage"_s, u"SymbolsPage"_s, u"SettingsPage"_s,
                       u"ContrastSettingsPage"_s} +
           pagesOf("WindowPage", CannedWindow::samples() + GalleryGesture::windowSamples()) +
           pagesOf("SmallWindowPage", small) + pagesOf("LargeWindowPage", large) +
           pagesOf("ContrastWindowPage", contrast) + pagesOf("ContrastDetailPage", {u"slow"_s}) +
           pagesOf("ContrastFormPage", {u"website"_s}) +
           pagesOf("DetailPage", CannedDetail::samples()) +
           pagesOf("SmallDetailPage", {u"down"_s}) + pagesOf("FormPage", CannedForm::samples()) +
           pagesOf("SmallFormPage", {u"website"_s});
}

} // namespace ostrel
