#pragma once

#include <QString>
#include <QStringList>

namespace ostrel {

/// The addresses of the icons that the home page of @p domain names in its links, of rel icon or
/// shortcut icon: the one whose rel stands before its href, then the one where it is the other way
/// round. They are as complete as resolveIconAddress makes them. Any thread.
[[nodiscard]] QStringList iconAddresses(const QString &html, const QString &domain);

/// The address that @p href names on the home page of @p domain. Nothing is decoded or trimmed.
[[nodiscard]] QString resolveIconAddress(const QString &href, const QString &domain);

} // namespace ostrel
