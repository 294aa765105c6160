#include "IconSources.h"

#include "Address.h"
#include "AddressScope.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// @p domain may have a port.
QString hostIn(const QString &domain)
{
    return hostOf(homePageAddress(domain)).value_or(domain);
}

bool isKnownToServices(const QString &host)
{
    return !isPrivateHost(host) && !host.endsWith(u".onion"_s, Qt::CaseInsensitive);
}

QList<IconSource> serviceSources(const QString &domain)
{
    if (!isKnownToServices(hostIn(domain)))
        return {};
    return {
        {u"https://%1/ip3/"_s.arg(QLatin1String(firstIconService)) + domain + u".ico"_s,
         Reach::publicOnly},
        {u"https://%1/s2/favicons?domain="_s.arg(QLatin1String(secondIconService)) + domain +
             u"&sz=64"_s,
         Reach::publicOnly},
    };
}

} // namespace

QString homePageAddress(const QString &domain)
{
    return u"https://"_s + domain;
}

QList<IconSource> wellKnownIconSources(const QString &domain)
{
    return serviceSources(domain) +
           QList<IconSource>{
               {homePageAddress(domain) + u"/apple-touch-icon.png"_s, Reach::outwards},
               {homePageAddress(domain) + u"/favicon.ico"_s, Reach::outwards},
           };
}

Reach reachOfLinksIn(const HttpResult &result)
{
    return result.isFromPublicAddress ? Reach::publicOnly : Reach::outwards;
}

} // namespace ostrel
