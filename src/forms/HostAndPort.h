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

/// Detects a host and a port in @p text, typed as a website's address: exactly one ":" followed by
/// a port from 1 to 65535, and no "http" at the beginning. The host may be empty, the port signed.
[[nodiscard]] std::optional<HostAndPort> detectHostAndPort(const QString &text);

} // namespace ostrel
