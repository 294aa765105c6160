#include "IconSearch.h"

#include "ContinueOn.h"
#include "IconSizes.h"
#include "IconWork.h"
#include "PageIcon.h"
#include "PlainGet.h"

#include <utility>

namespace ostrel {

namespace {

QList<IconSource> iconSourcesIn(const HttpResult &result, const QString &domain)
{
    const auto page = pageIn(result);
    QList<IconSource> sources;
    for (const QString &address : page ? iconAddresses(*page, domain) : QStringList())
        sources.append({address, reachOfLinksIn(result)});
    return sources;
}

} // namespace

IconSearch::IconSearch(QString domain, IconFolder folder, Network &network, IconWork &work,
                       QObject *parent)
    : QObject(parent)
    , m_domain(std::move(domain))
    , m_folder(std::move(folder))
    , m_network(network)
    , m_work(work)
    , m_sources(wellKnownIconSources(m_domain))
{
}

QFuture<QImage> IconSearch::start()
{
    m_promise.start();
    readFolder();
    return m_promise.future();
}

void IconSearch::readFolder()
{
    const auto icon = m_work.run(
        [domain = m_domain, folder = m_folder] { return shownIcon(folder.read(domain)); });
    continueOn(icon, this, [this](const QImage &kept) {
        if (kept.isNull())
            fetchHomePage();
        else
            finish(kept);
    });
}

void IconSearch::fetchHomePage()
{
    const auto request = plainGet(homePageAddress(m_domain), Reach::outwards);
    if (!request) {
        tryNextSource();
        return;
    }
    const auto sources =
        m_work.read(m_network.fetch(*request), [domain = m_domain](const HttpResult &result) {
            return iconSourcesIn(result, domain);
        });
    continueOn(sources, this, [this](const QList<IconSource> &named) {
        m_sources = named + m_sources;
        tryNextSource();
    });
}

void IconSearch::tryNextSource()
{
    if (m_sources.isEmpty()) {
        finish({});
        return;
    }
    const IconSource source = m_sources.takeFirst();
    if (const auto request = plainGet(source.address, source.reach))
        fetchPicture(*request);
    else
        tryNextSource();
}

void IconSearch::fetchPicture(const HttpRequest &request)
{
    continueOn(m_work.read(m_network.fetch(request), &pictureIn), this,
               [this](const QImage &picture) {
                   if (picture.isNull())
                       tryNextSource();
                   else
                       keep(picture);
               });
}

void IconSearch::keep(const QImage &picture)
{
    // Posted separately, since each of them takes long enough.
    m_work.post([domain = m_domain, folder = m_folder, picture] {
        folder.write(domain, keptIcon(picture));
    });
    continueOn(m_work.run([picture] { return shownIcon(picture); }), this,
               [this](const QImage &shown) { finish(shown); });
}

void IconSearch::finish(const QImage &icon)
{
    Q_EMIT finished(icon);
    m_promise.addResult(icon);
    m_promise.finish();
}

} // namespace ostrel
