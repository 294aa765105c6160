#pragma once

#include "CompactOptional.h"
#include "OptionalText.h"
#include "Timestamp.h"

#include <QUuid>

#include <optional>

namespace ostrel {

/// The result of one check of one monitor: a plain value, never changed after it is made.
///
/// Kept by the hundred thousand, so its fields are ordered and typed for size: 72 bytes.
struct Check
{
    QUuid id;
    QUuid monitorId;
    Timestamp timestamp;                     ///< When the check was made.
    CompactOptional<qint32> statusCode = {}; ///< HTTP; absent where no response arrived.
    bool isUp = false;
    std::optional<bool> keywordFound = {}; ///< Absent where no keyword was looked for.
    double responseTime = 0;               ///< Milliseconds, also of a failed attempt.
    OptionalText error = {};               ///< One line; absent when all was well.
    /// The leaf certificate's not-after, where one was seen.
    CompactOptional<Timestamp> sslExpiresAt = {};

    bool operator==(const Check &) const = default;
};

[[nodiscard]] size_t qHash(const Check &check, size_t seed = 0);

} // namespace ostrel
