#include "FaviconService.h"

#include "Address.h"
#include "IconSearch.h"
#include "PageTitle.h"
#include "PlainGet.h"

#include <QTextBoundaryFinder>

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString withoutWww(QString host)
{
    return host.remove(u"www."_s);
}

std::optional<QString> unlessEmpty(const QString &text)
{
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

QString firstCharacter(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    return text.left(finder.toNextBoundary());
}

std::optional<QString> titleOf(const HttpResult &result)
{
    const auto page = pageIn(result);
    return page ? pageTitleIn(*page) : std::nullopt;
}

} // namespace

FaviconService::FaviconService(const QString &cacheDir, Network &network,
                               WorkThread::Work prepareThread, QObject *parent, SteadyClock now)
    : QObject(parent)
    , m_cacheDir(cacheDir)
    , m_network(network)
    , m_memoryCache(memoryLimit)
    , m_failed(std::move(now))
    , m_work(std::move(prepareThread))
{
    m_work.post([folder = m_cacheDir] { folder.prepare(); });
}

QFuture<QImage> FaviconService::icon(const QString &address)
{
    const auto key = domain(address);
    if (!key)
        return QtFuture::makeReadyFuture(QImage());
    if (const QImage *icon = m_memoryCache.object(*key))
        return QtFuture::makeReadyFuture(*icon);
    if (const auto underWay = m_inFlight.constFind(*key); underWay != m_inFlight.cend())
        return *underWay;
    if (m_failed.contains(*key))
        return QtFuture::makeReadyFuture(QImage());
    return search(*key);
}

QFuture<QImage> FaviconService::search(const QString &domain)
{
    auto *search = new IconSearch(domain, m_cacheDir, m_network, m_work, this);
    connect(search, &IconSearch::finished, this, [this, domain, search](const QImage &icon) {
        m_inFlight.remove(domain);
        if (icon.isNull())
            m_failed.add(domain);
        else
            m_memoryCache.insert(domain, new QImage(icon), icon.sizeInBytes());
        search->deleteLater();
    });
    return *m_inFlight.insert(domain, search->start());
}

QFuture<std::optional<QString>> FaviconService::pageTitle(const QString &address)
{
    const auto request = plainGet(address, Reach::outwards);
    if (!request)
        return QtFuture::makeReadyFuture(std::optional<QString>());
    return m_work.read(m_network.fetch(*request), &titleOf);
}

std::optional<QString> FaviconService::domain(const QString &address)
{
    if (const auto host = hostOf(address))
        return unlessEmpty(withoutWww(*host));
    QString rest = address;
    rest.remove(u"https://"_s).remove(u"http://"_s);
    const auto pieces = withoutWww(rest).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    return pieces.isEmpty() ? std::nullopt : std::optional(pieces.first());
}

QString FaviconService::placeholderLetter(const QString &address)
{
    const QString host = withoutWww(hostOf(address).value_or(QString()));
    return host.isEmpty() ? u"?"_s : firstCharacter(host).toUpper();
}

} // namespace ostrel
