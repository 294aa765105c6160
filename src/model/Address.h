#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace ostrel {

/// Parses @p text as a URL (RFC 3986), with the corrections that browsers make: blanks and other
/// characters that should have been escaped are escaped; international host names become their
/// ASCII form when encoded. Nullopt if the text is empty or isn't a URL even then.
[[nodiscard]] std::optional<QUrl> parseAddress(const QString &text);

/// The host in the URL @p text, without the brackets of an IPv6 address. Nullopt if it has none: a
/// bare host name is a relative path, and "db.local:5432" a URL with the scheme "db.local".
[[nodiscard]] std::optional<QString> hostOf(const QString &text);

} // namespace ostrel
