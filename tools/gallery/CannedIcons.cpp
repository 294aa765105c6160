#include "CannedIcons.h"

#include "FaviconService.h"
#include "IconFolder.h"
#include "Network.h"

#include <QCoreApplication>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <array>

namespace ostrel {

namespace {

constexpr int iconSize = 176;

struct Icon
{
    const char *domain;
    const char *plate;
    const char *drawing; ///< On a grid of 24 by 24.
};

constexpr std::array icons = {
    Icon{
        "notes.example.org", "#2f806b",
        R"(<path d="M6.5 8h11M6.5 12h11M6.5 16h6.5" stroke="white" stroke-width="2" stroke-linecap="round"/>)"},
    Icon{"bakery.example", "#c8622e",
         R"(<path d="M4.5 15.5a7.5 6.5 0 0 1 15 0 1 1 0 0 1-1 1h-13a1 1 0 0 1-1-1z" fill="#ffe3bd"/>
            <path d="M8.7 11.4l1 1.7M12 10.6v2M15.3 11.4l-1 1.7" stroke="#c8622e" stroke-width="1.3" stroke-linecap="round"/>)"},
    Icon{
        "docs.example.org", "#3d6de0",
        R"(<path d="M5 6.5c2.6-.8 4.8-.5 6.3.6v11c-1.5-1.1-3.7-1.400-6.3-.6zM19 6.5c-2.6-.8-4.8-.5-6.3.6v11c1.5-1.1 3.7-1.400 6.3-.6z" fill="white"/>)"},
    Icon{"staging.example.org", "#6a5a8e",
         R"(<path d="M12 5l7.5 4.200L12 13.4 4.5 9.200z" fill="white"/>
            <path d="M5 13.8l7 3.9 7-3.9" fill="none" stroke="white" stroke-width="2" stroke-linecap="round" stroke-linejoin="round"/>)"},
};

QImage draw(const Icon &icon)
{
    const QByteArray file =
        QByteArray(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24">)")
            .append(icon.drawing)
            .append("</svg>");
    QImage image(iconSize, iconSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(QLatin1String(icon.plate)));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(file).render(&painter);
    return image;
}

QString fill(const QString &path)
{
    const IconFolder folder(path);
    for (const Icon &icon : icons)
        folder.write(QString::fromLatin1(icon.domain), draw(icon));
    return path;
}

/// The folder with the icons, drawn once for all windows.
QString filledFolder()
{
    static const QTemporaryDir folder;
    static const QString path = fill(folder.path());
    return path;
}

/// A network through which nothing can be reached.
class NoNetwork final : public Network
{
public:
    QFuture<HttpResult> fetch(const HttpRequest & /*request*/) override
    {
        return QtFuture::makeReadyFuture(HttpResult());
    }
    QFuture<TcpResult> connect(const QString & /*host*/, quint16 /*port*/,
                               std::chrono::milliseconds /*timeout*/) override
    {
        return QtFuture::makeReadyFuture(TcpResult());
    }
    void dropConnections() override {}
};

} // namespace

FaviconService &cannedIcons(QObject *parent)
{
    static NoNetwork network;
    auto *service = new FaviconService(filledFolder(), network, {}, parent);
    for (const Icon &icon : icons) {
        const auto found = service->icon(QString::fromLatin1(icon.domain));
        while (!found.isFinished())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return *service;
}

} // namespace ostrel
