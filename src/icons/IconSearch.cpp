#include "IconSearch.h"

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
    QMetaObject::invokeMethod(this, &IconSearch::readFolder, Qt::QueuedConnection);
    return m_promise.future();
}

void IconSearch::readFolder()
{
    QtFuture::makeReadyFuture()
        .then(QThreadPool::globalInstance(),
              [domain = m_domain, folder = m_folder] { return folder.read(domain); })
        .then(this, [this](const QImage &icon) {
            if (icon.isNull())
                fetchHomePage();
            else
                finish(icon);
        });
}

void IconSearch::fetchHomePage()
{
    const auto request = plainGet(homePageAddress(m_domain));
    if (!request) {
        tryNextAddress();
        return;
    }
    m_fetch(*request)
        .then(QThreadPool::globalInstance(),
              [domain = m_domain](const HttpResult &result) {
                  return iconAddressesIn(result, domain);
              })
        .then(this, [this](const QStringList &addresses) {
            m_addresses = addresses + m_addresses;
            tryNextAddress();
        });
}

void IconSearch::tryNextAddress()
{
    if (m_addresses.isEmpty()) {
        finish({});
        return;
    }
    const auto request = plainGet(m_addresses.takeFirst());
    if (!request) {
        tryNextAddress();
        return;
    }
    m_fetch(*request)
        .then(QThreadPool::globalInstance(),
              [domain = m_domain, folder = m_folder](const HttpResult &result) {
                  return keepPictureIn(result, domain, folder);
              })
        .then(this, [this](const QImage &icon) {
            if (icon.isNull())
                tryNextAddress();
            else
                finish(icon);
        });
}

void IconSearch::finish(const QImage &icon)
{
    m_promise.addResult(icon);
    m_promise.finish();
}

} // namespace ostrel
