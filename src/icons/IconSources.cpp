#include "IconSources.h"

namespace ostrel {

QString homePageAddress(const QString &domain)
{
    return QStringLiteral("https://") + domain;
}

QStringList wellKnownIconAddresses(const QString &domain)
{
    return {
        QStringLiteral("https://%1/ip3/").arg(QLatin1String(firstIconService)) + domain +
            QStringLiteral(".ico"),
        QStringLiteral("https://%1/s2/favicons?domain=").arg(QLatin1String(secondIconService)) +
            domain + QStringLiteral("&sz=64"),
        homePageAddress(domain) + QStringLiteral("/apple-touch-icon.png"),
        homePageAddress(domain) + QStringLiteral("/favicon.ico"),
    };
}

} // namespace ostrel
