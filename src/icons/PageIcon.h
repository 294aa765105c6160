#pragma once

#include <QString>
#include <QStringList>

namespace ostrel {

/// The addresses of the icons that the home page of @p domain names in its links with rel icon or
/// shortcut icon: first a link whose rel comes before its href, then one with the opposite order.
/// They are completed by resolveIconAddress(). Any thread.
[[nodiscard]] QStringList iconAddresses(const QString &html, const QString &domain);

/// The address that @p href names on the home page of @p domain. Nothing is decoded or trimmed.
[[nodiscard]] QString resolveIconAddress(const QString &href, const QString &domain);

} // namespace ostrel
