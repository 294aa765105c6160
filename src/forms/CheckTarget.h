#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// What to check: a web address, or a host if there is a port.
struct CheckTarget
{
    QString url;
    std::optional<qint64> port = {};
};

/// The host @p typed if there is a @p port, otherwise what the form reads from @p typed. Nullopt if
/// that can't be checked.
[[nodiscard]] std::optional<CheckTarget> checkTargetFrom(const QString &typed,
                                                         std::optional<qint64> port);

} // namespace ostrel
