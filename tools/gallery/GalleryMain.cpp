#include "GalleryWindow.h"
#include "ThemeFonts.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickWindow>

#include <cstdio>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using namespace ostrel;

constexpr int exitFailed = 1;
constexpr int exitUnusable = 2;

struct Wishes
{
    QString scale;
    QString saveDir; ///< If empty, the pages are shown instead.
    QStringList pages;
};

int complain(const QString &text, int exitCode)
{
    std::fputs(qPrintable(u"ostrel-gallery: %1\n"_s.arg(text)), stderr);
    return exitCode;
}

Wishes readWishes(const QStringList &arguments)
{
    const QCommandLineOption scale(u"scale"_s, u"Draw at this scale factor."_s, u"factor"_s);
    const QCommandLineOption save(u"save"_s, u"Save every page as a PNG in this folder and end."_s,
                                  u"folder"_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Shows Ostrel's parts with canned data."_s);
    parser.addHelpOption();
    parser.addOptions({scale, save});
    parser.addPositionalArgument(u"pages"_s, galleryPages().join(QLatin1Char(' ')), u"[pages…]"_s);
    parser.process(arguments);
    return {
        .scale = parser.value(scale),
        .saveDir = parser.value(save),
        .pages =
            parser.positionalArguments().isEmpty() ? galleryPages() : parser.positionalArguments(),
    };
}

int savePages(const Wishes &wishes)
{
    const QDir folder(wishes.saveDir);
    if (!folder.mkpath(u"."_s))
        return complain(u"can't make %1"_s.arg(wishes.saveDir), exitFailed);
    for (const QString &page : wishes.pages) {
        GalleryWindow window(page);
        if (!window.isUsable())
            return complain(u"there is no page %1"_s.arg(page), exitUnusable);
        window.show();
        window.awaitActive();
        window.performGesture();
        const QString path = folder.filePath(
            u"%1@%2.png"_s.arg(page, wishes.scale.isEmpty() ? u"1"_s : wishes.scale));
        if (!window.save(path))
            return complain(u"can't write %1"_s.arg(path), exitFailed);
    }
    return 0;
}

int showPages(const QStringList &pages)
{
    std::vector<std::unique_ptr<GalleryWindow>> windows;
    for (const QString &page : pages) {
        windows.push_back(std::make_unique<GalleryWindow>(page));
        if (!windows.back()->isUsable())
            return complain(u"there is no page %1"_s.arg(page), exitUnusable);
        windows.back()->show();
    }
    return QGuiApplication::exec();
}

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    return arguments;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(u"ostrel-gallery"_s);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QStringList arguments = argumentsOf(argc, argv);
    // The toolkit reads the scale when the application is created, before options are parsed.
    const auto scaleAt = arguments.indexOf(u"--scale"_s) + 1;
    if (scaleAt > 0 && scaleAt < arguments.size())
        qputenv("QT_SCALE_FACTOR", arguments.at(scaleAt).toLatin1());

    // Times are the same wherever the gallery is opened.
    qputenv("TZ", "UTC");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));

    const QGuiApplication application(argc, argv);
    ThemeFonts::install();
    const Wishes wishes = readWishes(arguments);
    return wishes.saveDir.isEmpty() ? showPages(wishes.pages) : savePages(wishes);
}
