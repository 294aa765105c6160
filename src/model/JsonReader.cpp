#include "JsonReader.h"

#include "UuidText.h"

#include <QStringDecoder>

#include <cmath>

namespace ostrel {

namespace {

using namespace simdjson;

/// Deeper nesting is rejected, so that no file can exhaust the stack.
constexpr int maxSkippedDepth = 512;

template<typename Value>
std::optional<Value> valueOf(simdjson_result<Value> result)
{
    Value value{};
    if (std::move(result).get(value) != SUCCESS)
        return std::nullopt;
    return value;
}

bool skip(JsonValue &value, int depth);

bool skipArray(JsonValue &value, int depth)
{
    ondemand::array array;
    if (value.get_array().get(array) != SUCCESS)
        return false;
    for (auto element : array) {
        JsonValue item;
        if (std::move(element).get(item) != SUCCESS || !skip(item, depth))
            return false;
    }
    return true;
}

bool skipObject(JsonValue &value, int depth)
{
    ondemand::object object;
    if (value.get_object().get(object) != SUCCESS)
        return false;
    for (auto member : object) {
        ondemand::field field;
        if (std::move(member).get(field) != SUCCESS || field.unescaped_key().error() != SUCCESS ||
            !skip(field.value(), depth))
            return false;
    }
    return true;
}

bool skip(JsonValue &value, int depth)
{
    ondemand::json_type type{};
    if (depth == maxSkippedDepth || value.type().get(type) != SUCCESS)
        return false;
    switch (type) {
    case ondemand::json_type::array:
        return skipArray(value, depth + 1);
    case ondemand::json_type::object:
        return skipObject(value, depth + 1);
    case ondemand::json_type::number:
        return readNumber(value).has_value();
    case ondemand::json_type::string:
        return readString(value).has_value();
    case ondemand::json_type::boolean:
        return readBool(value).has_value();
    case ondemand::json_type::null:
        return isNull(value);
    }
    return false;
}

} // namespace

std::optional<std::string_view> readString(JsonValue &value)
{
    return valueOf(value.get_string());
}

std::optional<QString> readText(JsonValue &value)
{
    const auto text = readString(value);
    if (!text)
        return std::nullopt;
    // QString::fromUtf8 would take a leading U+FEFF for a byte order mark and drop it.
    QStringDecoder decode(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return QString(decode(QByteArrayView(text->data(), qsizetype(text->size()))));
}

std::optional<QUuid> readUuid(JsonValue &value)
{
    const auto text = readString(value);
    return text ? parseUuid(*text) : std::nullopt;
}

std::optional<Timestamp> readTimestamp(JsonValue &value)
{
    const auto text = readString(value);
    return text ? parseTimestamp(*text) : std::nullopt;
}

std::optional<bool> readBool(JsonValue &value)
{
    return valueOf(value.get_bool());
}

std::optional<double> readNumber(JsonValue &value)
{
    return valueOf(value.get_double());
}

std::optional<qint64> readInteger(JsonValue &value)
{
    if (const auto integer = valueOf(value.get_int64()))
        return *integer;

    // 2^63 doesn't fit in 64 bits. -2^63 does, but lower numbers round to it too.
    constexpr double bound = 9223372036854775808.0;
    const auto number = readNumber(value);
    if (!number || *number != std::trunc(*number) || *number <= -bound || *number >= bound)
        return std::nullopt;
    return static_cast<qint64>(*number);
}

bool isNull(JsonValue &value)
{
    return valueOf(value.is_null()).value_or(false);
}

bool skipValue(JsonValue &value)
{
    return skip(value, 0);
}

std::size_t findKey(ondemand::field &field, std::span<const std::string_view> keys,
                    std::size_t expected)
{
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::size_t index =
            expected + i < keys.size() ? expected + i : expected + i - keys.size();
        if (field.key().unsafe_is_equal(keys[index]))
            return index;
    }
    // A key with an escape isn't found by the comparison of raw texts.
    const auto key = valueOf(field.unescaped_key());
    if (!key)
        return malformedKey;
    const auto found = std::ranges::find(keys, *key);
    return found == keys.end() ? unknownKey : std::size_t(found - keys.begin());
}

bool isAtEnd(ondemand::document &document)
{
    return document.current_location().error() == OUT_OF_BOUNDS;
}

} // namespace ostrel
