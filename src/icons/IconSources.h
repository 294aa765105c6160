#pragma once

#include "Network.h"

#include <QList>
#include <QString>

namespace ostrel {

/// The two public services that are asked for the icon of a site whose own page names none.
inline constexpr char firstIconService[] = "icons.duckduckgo.com";
inline constexpr char secondIconService[] = "www.google.com";

/// Where an icon may be.
struct IconSource
{
    QString address;
    Reach reach;
};

/// The page on which the site of @p domain may name its icon.
[[nodiscard]] QString homePageAddress(const QString &domain);

/// Where the icon of @p domain may be besides, in the order in which to try: the first service, the
/// second, the site's touch icon, its classic icon. The services are left out where they can't know
/// the site, so that nobody learns the names of a network of one's own: for private hosts
/// (isPrivateHost) and onion services.
[[nodiscard]] QList<IconSource> wellKnownIconSources(const QString &domain);

/// How far a request for an icon may go that the page in @p result names. A public page can't make
/// anybody ask a private address; one that comes from such an address itself may name its own.
[[nodiscard]] Reach reachOfLinksIn(const HttpResult &result);

} // namespace ostrel
