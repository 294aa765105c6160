#pragma once

#include <QString>
#include <QStringList>

namespace ostrel {

/// The two public services that are asked for the icon of a site whose own page names none.
inline constexpr char firstIconService[] = "icons.duckduckgo.com";
inline constexpr char secondIconService[] = "www.google.com";

/// The page on which the site of @p domain may name its icon.
[[nodiscard]] QString homePageAddress(const QString &domain);

/// Where the icon of @p domain may be besides, in the order in which to try: the first service, the
/// second, the site's touch icon, its classic icon.
[[nodiscard]] QStringList wellKnownIconAddresses(const QString &domain);

} // namespace ostrel
