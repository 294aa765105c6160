#include "IconSources.h"

#include "Address.h"
#include "AddressScope.h"

namespace ostrel {

namespace {

/// @p domain may carry a port.
QString hostIn(const QString &domain)
{
    return hostOf(homePageAddress(domain)).value_or(domain);
}

bool isKnownToServices(const QString &host)
{
    return !isPrivateHost(host) && !host.endsWith(QStringLiteral(".onion"), Qt::CaseInsensitive);
}

QList<IconSource> serviceSources(const QString &domain)
{
    if (!isKnownToServices(hostIn(domain)))
        return {};
    return {
        {QStringLiteral("https://%1/ip3/").arg(QLatin1String(firstIconService)) + domain +
             QStringLiteral(".ico"),
         Reach::publicOnly},
        {QStringLiteral("https://%1/s2/favicons?domain=").arg(QLatin1String(secondIconService)) +
             domain + QStringLiteral("&sz=64"),
         Reach::publicOnly},
    };
}

} // namespace

QString homePageAddress(const QString &domain)
{
    return QStringLiteral("https://") + domain;
}

QList<IconSource> wellKnownIconSources(const QString &domain)
{
    return serviceSources(domain) +
           QList<IconSource>{
               {homePageAddress(domain) + QStringLiteral("/apple-touch-icon.png"), Reach::outwards},
               {homePageAddress(domain) + QStringLiteral("/favicon.ico"), Reach::outwards},
           };
}

Reach reachOfLinksIn(const HttpResult &result)
{
    return result.isFromPublicAddress ? Reach::publicOnly : Reach::outwards;
}

} // namespace ostrel
