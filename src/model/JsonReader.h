#pragma once

#include "Timestamp.h"

#include <QString>
#include <QUuid>

#include <simdjson.h>

#include <optional>
#include <span>
#include <string_view>

// Strict readers of one JSON value each, for the decoders of this folder alone. Each gives nothing
// for a value of another type, null among them, and for malformed JSON.

namespace ostrel {

using JsonValue = simdjson::ondemand::value;

/// The text without its escapes, valid UTF-8, as long as the parser parses no other document.
[[nodiscard]] std::optional<std::string_view> readString(JsonValue &value);
[[nodiscard]] std::optional<QString> readText(JsonValue &value);
[[nodiscard]] std::optional<QUuid> readUuid(JsonValue &value);
[[nodiscard]] std::optional<Timestamp> readTimestamp(JsonValue &value);
[[nodiscard]] std::optional<bool> readBool(JsonValue &value);
[[nodiscard]] std::optional<double> readNumber(JsonValue &value);
/// A whole number, however it is written (80, 80.0, 8e1), that 64 bits hold.
[[nodiscard]] std::optional<qint64> readInteger(JsonValue &value);

[[nodiscard]] bool isNull(JsonValue &value);

/// Whether @p value, of any type and nesting, is well-formed; passes it over.
[[nodiscard]] bool skipValue(JsonValue &value);

/// What findKey() gives for a key that is none of the known ones, and for a malformed one. Plain
/// numbers, since this is asked nine times for each check of a file: a std::optional costs a stall.
inline constexpr std::size_t unknownKey = 1000;
inline constexpr std::size_t malformedKey = unknownKey + 1;

/// The place in @p keys of the key of @p field. The search begins at @p expected, so that keys in
/// their usual order are found at once.
[[nodiscard]] std::size_t findKey(simdjson::ondemand::field &field,
                                  std::span<const std::string_view> keys, std::size_t expected);

/// Whether nothing follows what has been read of @p document.
[[nodiscard]] bool isAtEnd(simdjson::ondemand::document &document);

/// Stores @p value in @p target where there is one; false where there is none.
template<typename Target, typename Value>
[[nodiscard]] bool assign(Target &target, std::optional<Value> value)
{
    if (!value)
        return false;
    target = Target(*std::move(value));
    return true;
}

/// Stores what @p read gives for @p value in @p target, and for null @p absent; false where that is
/// nothing.
template<typename Target, typename Read>
[[nodiscard]] bool assignOptional(Target &target, const Target &absent, JsonValue &value, Read read)
{
    if (!isNull(value))
        return assign(target, read(value));
    target = absent;
    return true;
}

} // namespace ostrel
