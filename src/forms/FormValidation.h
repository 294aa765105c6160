#pragma once

#include <QString>

namespace ostrel {

/// Whether @p url can be saved as a website's address: it contains a "." or begins with "http".
[[nodiscard]] bool isValidWebsite(const QString &url);

/// Whether @p host and @p portText can be saved for a port monitor: a host and a number above 0. A
/// port above 65535 is accepted; its checks fail and say so.
[[nodiscard]] bool isValidHostAndPort(const QString &host, const QString &portText);

} // namespace ostrel
