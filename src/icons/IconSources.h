#pragma once

#include "Network.h"

#include <QList>
#include <QString>

namespace ostrel {

/// The two public services that are asked for the icon of a site whose own page names none.
inline constexpr char firstIconService[] = "icons.duckduckgo.com";
inline constexpr char secondIconService[] = "www.google.com";

/// An address where an icon may be found.
struct IconSource
{
    QString address;
    Reach reach;
};

/// The address of the page on which the site of @p domain may name its icon.
[[nodiscard]] QString homePageAddress(const QString &domain);

/// Other addresses where the icon of @p domain may be, in the order in which to try them: the first
/// service, the second, the site's touch icon, its classic icon. The services are left out if they
/// can't know the site, so that the names of a private network aren't disclosed: for private hosts
/// (isPrivateHost) and onion services.
[[nodiscard]] QList<IconSource> wellKnownIconSources(const QString &domain);

/// The reach of a request for an icon that the page in @p result names. A public page can't cause a
/// request to a private address; a page that comes from such an address itself may name one.
[[nodiscard]] Reach reachOfLinksIn(const HttpResult &result);

} // namespace ostrel
