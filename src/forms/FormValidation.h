#pragma once

#include <QString>

namespace ostrel {

/// Whether @p url can be saved as a website's address: it has a "." or begins with "http".
[[nodiscard]] bool isValidWebsite(const QString &url);

/// Whether @p host and @p portText can be saved as a port monitor's: a host and a number above 0.
/// A port above 65535 is taken, and its checks fail and say so.
[[nodiscard]] bool isValidHostAndPort(const QString &host, const QString &portText);

} // namespace ostrel
