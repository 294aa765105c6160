#include "IconSearch.h"

#include "ContinueOn.h"
#include "IconSources.h"
#include "PageIcon.h"

#include <QThreadPool>

#include <utility>

namespace ostrel {

namespace {

QStringList iconAddressesIn(const HttpResult &result, const QString &domain)
{
    const auto page = pageIn(result);
    return page ? iconAddresses(*page, domain) : QStringList();
}

QImage keepPictureIn(const HttpResult &result, const QString &domain, const IconFolder &folder)
{
    QImage picture = pictureIn(result);
    if (!picture.isNull())
        folder.write(domain, picture);
    return picture;
}

} // namespace

IconSearch::IconSearch(QString domain, IconFolder folder, Fetch fetch, QObject *parent)
    : QObject(parent)
    , m_domain(std::move(domain))
    , m_folder(std::move(folder))
    , m_fetch(std::move(fetch))
    , m_addresses(wellKnownIconAddresses(m_domain))
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
    const auto icon = QtFuture::makeReadyFuture().then(
        QThreadPool::globalInstance(),
        [domain = m_domain, folder = m_folder] { return folder.read(domain); });
    continueOn(icon, this, [this](const QImage &kept) {
        if (kept.isNull())
            fetchHomePage();
        else
            finish(kept);
    });
}

void IconSearch::fetchHomePage()
{
    const auto request = plainGet(homePageAddress(m_domain));
    if (!request) {
        tryNextAddress();
        return;
    }
    const auto addresses = m_fetch(*request).then(
        QThreadPool::globalInstance(),
        [domain = m_domain](const HttpResult &result) { return iconAddressesIn(result, domain); });
    continueOn(addresses, this, [this](const QStringList &named) {
        m_addresses = named + m_addresses;
        tryNextAddress();
    });
}

void IconSearch::tryNextAddress()
{
    if (m_addresses.isEmpty()) {
        finish({});
        return;
    }
    if (const auto request = plainGet(m_addresses.takeFirst()))
        fetchPicture(*request);
    else
        tryNextAddress();
}

void IconSearch::fetchPicture(const HttpRequest &request)
{
    const auto icon =
        m_fetch(request).then(QThreadPool::globalInstance(),
                              [domain = m_domain, folder = m_folder](const HttpResult &result) {
                                  return keepPictureIn(result, domain, folder);
                              });
    continueOn(icon, this, [this](const QImage &picture) {
        if (picture.isNull())
            tryNextAddress();
        else
            finish(picture);
    });
}

void IconSearch::finish(const QImage &icon)
{
    Q_EMIT finished(icon);
    m_promise.addResult(icon);
    m_promise.finish();
}

} // namespace ostrel
