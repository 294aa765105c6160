#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace ostrel {

/// @p text as a URL (RFC 3986), with the corrections that browsers make: blanks and other
/// characters that should have been escaped are, international host names become their ASCII form
/// when encoded. Nothing for an empty text and for one that is no URL even so.
[[nodiscard]] std::optional<QUrl> parseAddress(const QString &text);

/// The host that @p text names as a URL, without the brackets of an IPv6 address. Nothing where
/// it names none: a bare host name is a relative path, and "db.local:5432" a URL of the scheme
/// "db.local".
[[nodiscard]] std::optional<QString> hostOf(const QString &text);

} // namespace ostrel
