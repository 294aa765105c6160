#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// The two halves of "db.local:5432", as typed.
struct HostAndPort
{
    QString host;
    QString portText;

    bool operator==(const HostAndPort &) const = default;
};

/// What @p text, typed as a website's address, says of a port monitor instead: exactly one ":"
/// with a port from 1 to 65535 behind it, and no "http" at the beginning. The host may be empty,
/// the port signed.
[[nodiscard]] std::optional<HostAndPort> detectHostAndPort(const QString &text);

} // namespace ostrel
