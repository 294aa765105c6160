#include "MonitorJson.h"

#include "JsonReader.h"
#include "UuidText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <cmath>

namespace ostrel {

namespace {

using namespace simdjson;

enum class MonitorKey {
    id,
    name,
    url,
    method,
    interval,
    timeout,
    isEnabled,
    notifyOnDown,
    notifyOnRecovery,
    createdAt,
    type,
    keyword,
    keywordShouldExist,
    responseTimeThreshold,
    port,
    sslExpiryWarningDays,
};
constexpr std::array<std::string_view, 16> monitorKeys = {
    "id",
    "name",
    "url",
    "method",
    "interval",
    "timeout",
    "isEnabled",
    "notifyOnDown",
    "notifyOnRecovery",
    "createdAt",
    "type",
    "keyword",
    "keywordShouldExist",
    "responseTimeThreshold",
    "port",
    "sslExpiryWarningDays",
};

/// All keys up to "createdAt"; later versions added the rest.
constexpr unsigned requiredMonitorKeys = (1U << static_cast<unsigned>(MonitorKey::type)) - 1;

// Writing

QLatin1StringView keyText(MonitorKey key)
{
    const auto text = monitorKeys[static_cast<std::size_t>(key)];
    return QLatin1StringView(text.data(), qsizetype(text.size()));
}

/// @p text with a replacement character for every unpaired surrogate, which Qt would write as an
/// escape that strict readers reject.
QString wellFormed(const QString &text)
{
    return text.isValidUtf16() ? text : QString::fromUtf8(text.toUtf8());
}

QString uuidString(const QUuid &id)
{
    const auto text = formatUuid(id);
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

double finiteOr(double fallback, double number)
{
    return std::isfinite(number) ? number : fallback;
}

QJsonObject toJson(const Monitor &monitor)
{
    using enum MonitorKey;
    const Monitor standard;
    QJsonObject json{
        {keyText(id), uuidString(monitor.id)},
        {keyText(name), wellFormed(monitor.name)},
        {keyText(url), wellFormed(monitor.url)},
        {keyText(method), rawValue(monitor.method)},
        {keyText(interval), finiteOr(standard.interval.count(), monitor.interval.count())},
        {keyText(timeout), finiteOr(standard.timeout.count(), monitor.timeout.count())},
        {keyText(isEnabled), monitor.isEnabled},
        {keyText(notifyOnDown), monitor.notifyOnDown},
        {keyText(notifyOnRecovery), monitor.notifyOnRecovery},
        {keyText(createdAt), QString::fromLatin1(formatTimestamp(monitor.createdAt))},
        {keyText(type), rawValue(monitor.type)},
        {keyText(keywordShouldExist), monitor.keywordShouldExist},
        {keyText(sslExpiryWarningDays), monitor.sslExpiryWarningDays},
    };
    if (monitor.keyword)
        json.insert(keyText(keyword), wellFormed(*monitor.keyword));
    const auto &threshold = monitor.responseTimeThreshold;
    if (threshold && std::isfinite(threshold->count()))
        json.insert(keyText(responseTimeThreshold), threshold->count());
    if (monitor.port)
        json.insert(keyText(port), *monitor.port);
    return json;
}

// Reading

std::optional<HTTPMethod> readMethod(JsonValue &value)
{
    const auto text = readText(value);
    return text ? httpMethodFrom(*text) : std::nullopt;
}

std::optional<MonitorType> readType(JsonValue &value)
{
    const auto text = readText(value);
    return text ? monitorTypeFrom(*text) : std::nullopt;
}

bool readField(Monitor &monitor, std::size_t key, JsonValue &value)
{
    static const Monitor standard;
    switch (static_cast<MonitorKey>(key)) {
    case MonitorKey::id:
        return assign(monitor.id, readUuid(value));
    case MonitorKey::name:
        return assign(monitor.name, readText(value));
    case MonitorKey::url:
        return assign(monitor.url, readText(value));
    case MonitorKey::method:
        return assign(monitor.method, readMethod(value));
    case MonitorKey::interval:
        return assign(monitor.interval, readNumber(value));
    case MonitorKey::timeout:
        return assign(monitor.timeout, readNumber(value));
    case MonitorKey::isEnabled:
        return assign(monitor.isEnabled, readBool(value));
    case MonitorKey::notifyOnDown:
        return assign(monitor.notifyOnDown, readBool(value));
    case MonitorKey::notifyOnRecovery:
        return assign(monitor.notifyOnRecovery, readBool(value));
    case MonitorKey::createdAt:
        return assign(monitor.createdAt, readTimestamp(value));
    case MonitorKey::type:
        return assignOptional(monitor.type, standard.type, value, readType);
    case MonitorKey::keyword:
        return assignOptional(monitor.keyword, standard.keyword, value, readText);
    case MonitorKey::keywordShouldExist:
        return assignOptional(monitor.keywordShouldExist, standard.keywordShouldExist, value,
                              readBool);
    case MonitorKey::responseTimeThreshold:
        return assignOptional(monitor.responseTimeThreshold, standard.responseTimeThreshold, value,
                              readNumber);
    case MonitorKey::port:
        return assignOptional(monitor.port, standard.port, value, readInteger);
    case MonitorKey::sslExpiryWarningDays:
        return assignOptional(monitor.sslExpiryWarningDays, standard.sslExpiryWarningDays, value,
                              readInteger);
    }
    return skipValue(value);
}

std::optional<Monitor> readMonitor(ondemand::object &object)
{
    Monitor monitor;
    unsigned seen = 0;
    std::size_t expected = 0;
    for (auto member : object) {
        ondemand::field field;
        if (std::move(member).get(field) != SUCCESS)
            return std::nullopt;
        const std::size_t key = findKey(field, monitorKeys, expected);
        if (key == malformedKey || !readField(monitor, key, field.value()))
            return std::nullopt;
        seen |= key == unknownKey ? 0 : 1U << key;
        expected = key == unknownKey ? expected : key + 1;
    }
    return (seen & requiredMonitorKeys) == requiredMonitorKeys ? std::optional(std::move(monitor))
                                                               : std::nullopt;
}

std::optional<QList<Monitor>> readMonitors(ondemand::array &array)
{
    QList<Monitor> monitors;
    for (auto element : array) {
        ondemand::object object;
        if (std::move(element).get_object().get(object) != SUCCESS)
            return std::nullopt;
        auto monitor = readMonitor(object);
        if (!monitor)
            return std::nullopt;
        monitors.append(*std::move(monitor));
    }
    return monitors;
}

} // namespace

QByteArray encodeMonitors(const QList<Monitor> &monitors)
{
    QJsonArray array;
    for (const Monitor &monitor : monitors)
        array.append(toJson(monitor));
    return QJsonDocument(array).toJson(QJsonDocument::Indented);
}

std::optional<QList<Monitor>> decodeMonitors(QByteArrayView json)
{
    const padded_string text(json.data(), std::size_t(json.size()));
    ondemand::parser parser;
    ondemand::document document;
    ondemand::array array;
    if (parser.iterate(text).get(document) != SUCCESS || document.get_array().get(array) != SUCCESS)
        return std::nullopt;
    auto monitors = readMonitors(array);
    return isAtEnd(document) ? monitors : std::nullopt;
}

} // namespace ostrel
