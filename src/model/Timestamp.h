#pragma once

#include <QByteArray>

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>

namespace ostrel {

/// A UTC time, to the millisecond. Files hold whole seconds only.
using Timestamp = std::chrono::sys_time<std::chrono::milliseconds>;

/// The source of "now". Every rule that depends on the time takes one, so that tests can advance
/// it.
using WallClock = std::function<Timestamp()>;

/// The computer's own wall clock.
[[nodiscard]] Timestamp systemNow();

/// The number of characters of a stored date.
inline constexpr std::size_t storedTimestampLength = 20;

/// The stored form of a date: ISO 8601 internet date-time (RFC 3339), whole seconds, UTC, trailing
/// Z; a fraction of a second is rounded down. Years outside 0000 to 9999, which the form can't
/// hold, are clamped to its ends.
[[nodiscard]] QByteArray formatTimestamp(Timestamp timestamp);

/// Parses the stored form of a date. Nullopt for every other layout (a fraction, an offset, blanks,
/// lower-case letters) and for days and times that don't exist.
[[nodiscard]] std::optional<Timestamp> parseTimestamp(std::string_view text);

} // namespace ostrel
