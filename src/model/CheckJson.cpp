#include "CheckJson.h"

#include "JsonReader.h"
#include "UuidText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace ostrel {

namespace {

using namespace simdjson;

enum class CheckKey {
    id,
    monitorId,
    timestamp,
    statusCode,
    responseTime,
    isUp,
    error,
    sslExpiresAt,
    keywordFound,
};
constexpr std::array<std::string_view, 9> checkKeys = {
    "id",   "monitorId", "timestamp",    "statusCode",   "responseTime",
    "isUp", "error",     "sslExpiresAt", "keywordFound",
};

using KeySet = unsigned;

constexpr KeySet setOf(CheckKey key)
{
    return 1U << static_cast<unsigned>(key);
}

constexpr KeySet requiredCheckKeys = setOf(CheckKey::id) | setOf(CheckKey::monitorId) |
                                     setOf(CheckKey::timestamp) | setOf(CheckKey::responseTime) |
                                     setOf(CheckKey::isUp);

// Writing

template<typename Number>
void appendNumber(std::string &json, Number number)
{
    std::array<char, 32> text; // room for every double in its shortest form
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    json.append(text.data(), end);
}

void appendBool(std::string &json, bool value)
{
    json += value ? "true" : "false";
}

void appendUuid(std::string &json, const QUuid &id)
{
    const auto text = formatUuid(id);
    json += '"';
    json.append(text.data(), text.size());
    json += '"';
}

void appendTimestamp(std::string &json, Timestamp timestamp)
{
    const QByteArray text = formatTimestamp(timestamp);
    json += '"';
    json.append(text.constData(), std::size_t(text.size()));
    json += '"';
}

void appendEscaped(std::string &json, char character)
{
    static constexpr std::string_view digits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
        json += '\\';
        json += character;
    } else if (code < 0x20) {
        json += "\\u00";
        json += digits[code >> 4];
        json += digits[code & 0x0f];
    } else {
        json += character;
    }
}

void appendText(std::string &json, const QString &text)
{
    json += '"';
    for (const char character : text.toUtf8())
        appendEscaped(json, character);
    json += '"';
}

double finite(double number)
{
    return std::isfinite(number) ? number : 0;
}

// Reading

std::optional<qint32> readStatusCode(JsonValue &value)
{
    using Limits = std::numeric_limits<qint32>;
    const auto code = readInteger(value);
    // The lowest number represents an absent code.
    if (!code || *code <= Limits::min() || *code > Limits::max())
        return std::nullopt;
    return static_cast<qint32>(*code);
}

bool readField(Check &check, std::size_t key, JsonValue &value)
{
    switch (static_cast<CheckKey>(key)) {
    case CheckKey::id:
        return assign(check.id, readUuid(value));
    case CheckKey::monitorId:
        return assign(check.monitorId, readUuid(value));
    case CheckKey::timestamp:
        return assign(check.timestamp, readTimestamp(value));
    case CheckKey::statusCode:
        return assignOptional(check.statusCode, {}, value, readStatusCode);
    case CheckKey::responseTime:
        return assign(check.responseTime, readNumber(value));
    case CheckKey::isUp:
        return assign(check.isUp, readBool(value));
    case CheckKey::error:
        return assignOptional(check.error, {}, value, readText);
    case CheckKey::sslExpiresAt:
        return assignOptional(check.sslExpiresAt, {}, value, readTimestamp);
    case CheckKey::keywordFound:
        return assignOptional(check.keywordFound, {}, value, readBool);
    }
    return skipValue(value);
}

/// Whether the quoted UUID in @p token has a lower-case letter. Tests eight characters at a time:
/// this is called twice for each check of a file.
bool hasLowerCase(std::string_view token)
{
    std::uint64_t lowerCase = 0;
    for (const std::size_t position : {0U, 8U, 16U, 24U, 30U}) {
        std::uint64_t characters = 0;
        std::memcpy(&characters, token.data() + position, sizeof characters);
        // Among digits, hyphens, quotes and letters, only lower-case letters have both of these
        // bits.
        lowerCase |= characters & (characters << 1) & 0x4040404040404040;
    }
    return lowerCase != 0;
}

/// One value of the last check that was read, and its text.
template<typename Value>
struct Reading
{
    std::string_view token = {};
    Value value = {};
};

/// Caches the values that most checks of one history share, so that each is parsed once and then
/// recognised; and the error, so that all checks of an outage share one text.
struct LastReading
{
    Reading<QUuid> monitorId;
    Reading<CompactOptional<Timestamp>> sslExpiresAt;
    Reading<OptionalText> error;

    /// Sets @p key of @p check to its last value if @p token is the same text as last time.
    [[nodiscard]] bool recall(Check &check, std::size_t key, std::string_view token) const
    {
        if (key == std::size_t(CheckKey::monitorId) && token == monitorId.token)
            check.monitorId = monitorId.value;
        else if (key == std::size_t(CheckKey::sslExpiresAt) && token == sslExpiresAt.token)
            check.sslExpiresAt = sslExpiresAt.value;
        else if (key == std::size_t(CheckKey::error) && token == error.token)
            check.error = error.value;
        else
            return false;
        return true;
    }

    void remember(const Check &check, std::size_t key, std::string_view token)
    {
        if (key == std::size_t(CheckKey::monitorId))
            monitorId = {token, check.monitorId};
        else if (key == std::size_t(CheckKey::sslExpiresAt))
            sslExpiresAt = {token, check.sslExpiresAt};
        else if (key == std::size_t(CheckKey::error))
            error = {token, check.error};
    }
};

/// Reads one check, and finds out whether its text can be kept as its stored form.
class CheckReader
{
public:
    /// @p last is valid as long as the text that is read.
    explicit CheckReader(LastReading &last)
        : m_last(last)
    {
    }

    /// False if it isn't a complete check; the other functions are then meaningless.
    [[nodiscard]] bool read(ondemand::object &object)
    {
        std::size_t expected = 0;
        for (auto member : object) {
            if (member.error() != SUCCESS)
                return false;
            // Not moved out: copying a field causes store-forwarding stalls.
            ondemand::field &field = member.value_unsafe();
            const std::size_t key = findKey(field, checkKeys, expected);
            if (key == malformedKey || !readMember(key, field.value()))
                return false;
            expected = key == unknownKey ? expected : key + 1;
        }
        return (m_seen & requiredCheckKeys) == requiredCheckKeys;
    }

    [[nodiscard]] Check &check() { return m_check; }

    /// Whether the text, of @p length from brace to brace, has only known keys, each once,
    /// upper-case UUIDs, no null, and no blanks.
    [[nodiscard]] bool isCompact(std::size_t length) const
    {
        return m_isPlain && length == m_compactLength;
    }

private:
    bool readMember(std::size_t key, JsonValue &value)
    {
        const std::string_view token = value.raw_json_token();
        if (isPlainMember(key, token))
            m_compactLength += checkKeys[key].size() + token.size() + punctuation;
        else
            m_isPlain = false;
        m_seen |= bitOf(key);
        if (m_last.recall(m_check, key, token))
            return true;
        if (!readField(m_check, key, value))
            return false;
        m_last.remember(m_check, key, token);
        return true;
    }

    bool isPlainMember(std::size_t key, std::string_view token) const
    {
        if (key == unknownKey || (m_seen & bitOf(key)) != 0 || isBlank(token.back()) ||
            token.front() == 'n')
            return false;
        const bool isUuid = key <= std::size_t(CheckKey::monitorId);
        return !isUuid || (token.size() == uuidTextLength + 2 && !hasLowerCase(token));
    }

    static KeySet bitOf(std::size_t key) { return key == unknownKey ? 0 : 1U << key; }
    static bool isBlank(char character) { return character <= ' ' && character >= 0; }

    static constexpr std::size_t punctuation = 4; // quotes, colon, and a comma or the brace

    LastReading &m_last;
    Check m_check;
    KeySet m_seen = 0;
    bool m_isPlain = true;
    std::size_t m_compactLength = 1; // the opening brace
};

/// Reads one document that alternates ids and arrays of checks.
class CheckMapReader
{
public:
    /// Reads @p document, whose text @p text is at @p offset.
    CheckMapReader(ondemand::document &document, const char *text, quint64 offset,
                   CheckMapVisitor &visitor)
        : m_document(document)
        , m_text(text)
        , m_offset(offset)
        , m_visitor(visitor)
    {
    }

    [[nodiscard]] bool read()
    {
        ondemand::array pairs;
        if (m_document.get_array().get(pairs) != SUCCESS)
            return false;
        bool isIdNext = true;
        for (auto element : pairs) {
            JsonValue value;
            if (std::move(element).get(value) != SUCCESS ||
                !(isIdNext ? readId(value) : readHistory(value)))
                return false;
            isIdNext = !isIdNext;
        }
        return isIdNext && isAtEnd(m_document);
    }

private:
    bool readId(JsonValue &value)
    {
        const auto id = readUuid(value);
        if (id)
            m_visitor.openHistory(*id);
        return id.has_value();
    }

    bool readHistory(JsonValue &value)
    {
        ondemand::array history;
        if (value.get_array().get(history) != SUCCESS)
            return false;
        for (auto element : history) {
            JsonValue item;
            if (std::move(element).get(item) != SUCCESS || !readCheck(item))
                return false;
        }
        return true;
    }

    bool readCheck(JsonValue &value)
    {
        const char *begin = value.raw_json_token().data();
        ondemand::object object;
        CheckReader reader(m_last);
        if (value.get_object().get(object) != SUCCESS || !reader.read(object))
            return false;

        const char *end = nullptr;
        if (m_document.current_location().get(end) != SUCCESS)
            return false;
        const TextRange range = {.offset = m_offset + quint64(begin - m_text),
                                 .length = quint64(end - begin)};
        m_visitor.takeCheck(std::move(reader.check()),
                            reader.isCompact(range.length) ? std::optional(range) : std::nullopt);
        return true;
    }

    ondemand::document &m_document;
    const char *m_text;
    quint64 m_offset;
    CheckMapVisitor &m_visitor;
    LastReading m_last;
};

} // namespace

void appendCheck(std::string &json, const Check &check)
{
    json += R"({"id":)";
    appendUuid(json, check.id);
    json += R"(,"monitorId":)";
    appendUuid(json, check.monitorId);
    json += R"(,"timestamp":)";
    appendTimestamp(json, check.timestamp);
    if (check.statusCode) {
        json += R"(,"statusCode":)";
        appendNumber(json, *check.statusCode);
    }
    json += R"(,"responseTime":)";
    appendNumber(json, finite(check.responseTime));
    json += R"(,"isUp":)";
    appendBool(json, check.isUp);
    if (check.error) {
        json += R"(,"error":)";
        appendText(json, *check.error);
    }
    if (check.sslExpiresAt) {
        json += R"(,"sslExpiresAt":)";
        appendTimestamp(json, *check.sslExpiresAt);
    }
    if (check.keywordFound) {
        json += R"(,"keywordFound":)";
        appendBool(json, *check.keywordFound);
    }
    json += '}';
}

class CheckMapDecoder::Parser : public ondemand::parser
{
};

CheckMapDecoder::CheckMapDecoder(CheckMapVisitor &visitor)
    : m_visitor(visitor)
    , m_parser(std::make_unique<Parser>())
{
    static_assert(padding >= SIMDJSON_PADDING);
}

CheckMapDecoder::~CheckMapDecoder() = default;

bool CheckMapDecoder::decode(std::string_view json, quint64 offset)
{
    ondemand::document document;
    const padded_string_view text(json.data(), json.size(), json.size() + padding);
    return m_parser->iterate(text).get(document) == SUCCESS &&
           CheckMapReader(document, json.data(), offset, m_visitor).read();
}

} // namespace ostrel
