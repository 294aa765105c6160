#pragma once

#include "CompactOptional.h"
#include "OptionalText.h"
#include "Timestamp.h"

#include <QUuid>

#include <optional>

namespace ostrel {

/// The result of one check of one monitor: a plain value, never changed after it is made.
///
/// Hundreds of thousands are kept in memory, so its fields are ordered and typed for size: 72
/// bytes. With std::optional throughout it would be 112.
struct Check
{
    QUuid id;
    QUuid monitorId;
    Timestamp timestamp;                     ///< When the check was made.
    CompactOptional<qint32> statusCode = {}; ///< HTTP; absent if no response arrived.
    bool isUp = false;
    std::optional<bool> keywordFound = {}; ///< Absent if no keyword was searched for.
    double responseTime = 0;               ///< Milliseconds, also of a failed attempt.
    OptionalText error = {};               ///< One line; absent if the check succeeded.
    /// The leaf certificate's not-after, if one was seen.
    CompactOptional<Timestamp> sslExpiresAt = {};

    bool operator==(const Check &) const = default;
};

[[nodiscard]] size_t qHash(const Check &check, size_t seed = 0);

} // namespace ostrel
