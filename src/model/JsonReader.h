#pragma once

#include "Timestamp.h"

#include <QString>
#include <QUuid>

#include <simdjson.h>

#include <optional>
#include <span>
#include <string_view>

// Strict readers of one JSON value each, for the decoders of this folder only. They return nullopt
// if the value has another type, null included, or the JSON is malformed.

namespace ostrel {

using JsonValue = simdjson::ondemand::value;

/// The unescaped text in valid UTF-8. Valid until the parser parses another document.
[[nodiscard]] std::optional<std::string_view> readString(JsonValue &value);
[[nodiscard]] std::optional<QString> readText(JsonValue &value);
[[nodiscard]] std::optional<QUuid> readUuid(JsonValue &value);
[[nodiscard]] std::optional<Timestamp> readTimestamp(JsonValue &value);
[[nodiscard]] std::optional<bool> readBool(JsonValue &value);
[[nodiscard]] std::optional<double> readNumber(JsonValue &value);
/// A whole number that fits in 64 bits, however it is written (80, 80.0, 8e1).
[[nodiscard]] std::optional<qint64> readInteger(JsonValue &value);

[[nodiscard]] bool isNull(JsonValue &value);

/// Skips @p value, of any type and nesting. Returns whether it is well-formed.
[[nodiscard]] bool skipValue(JsonValue &value);

/// The results of findKey() for an unknown key and for a malformed one. Plain numbers, since it is
/// called nine times for each check of a file: a std::optional costs a stall.
inline constexpr std::size_t unknownKey = 1000;
inline constexpr std::size_t malformedKey = unknownKey + 1;

/// The index in @p keys of the key of @p field. The search starts at @p expected, so that keys in
/// their usual order are found at once.
[[nodiscard]] std::size_t findKey(simdjson::ondemand::field &field,
                                  std::span<const std::string_view> keys, std::size_t expected);

/// Whether nothing follows the part of @p document read so far.
[[nodiscard]] bool isAtEnd(simdjson::ondemand::document &document);

/// Stores @p value in @p target; false if there is none.
template<typename Target, typename Value>
[[nodiscard]] bool assign(Target &target, std::optional<Value> value)
{
    if (!value)
        return false;
    target = Target(*std::move(value));
    return true;
}

/// Stores the result of @p read for @p value in @p target, or @p absent if the value is null. False
/// if the result is nullopt.
template<typename Target, typename Read>
[[nodiscard]] bool assignOptional(Target &target, const Target &absent, JsonValue &value, Read read)
{
    if (!isNull(value))
        return assign(target, read(value));
    target = absent;
    return true;
}

} // namespace ostrel
