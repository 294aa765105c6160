#include "RecordObjects.h"

#include "CheckJson.h"
#include "MonitorJson.h"
#include "UuidText.h"

#include <QJsonDocument>

#include <utility>

namespace ostrel {

namespace {

class CheckCollector : public CheckMapVisitor
{
public:
    explicit CheckCollector(const QUuid &monitorId)
        : m_monitorId(monitorId)
    {
    }

    void openHistory(const QUuid & /*monitorId*/) override {}
    void takeCheck(Check &&check, std::optional<TextRange> /*compact*/) override
    {
        check.monitorId = m_monitorId;
        checks.push_back(std::move(check));
    }

    std::vector<Check> checks;

private:
    QUuid m_monitorId;
};

} // namespace

QJsonObject monitorObject(const Monitor &monitor)
{
    return QJsonDocument::fromJson(encodeMonitors({monitor})).array().at(0).toObject();
}

std::optional<Monitor> monitorFrom(const QJsonObject &object)
{
    const auto monitors =
        decodeMonitors(QJsonDocument(QJsonArray{object}).toJson(QJsonDocument::Compact));
    return monitors && monitors->size() == 1 ? std::optional(monitors->constFirst()) : std::nullopt;
}

QJsonObject checkObject(const Check &check)
{
    std::string json;
    appendCheck(json, check);
    return QJsonDocument::fromJson(QByteArray::fromStdString(json)).object();
}

QJsonArray checkArray(std::span<const Check> checks)
{
    QJsonArray array;
    for (const Check &check : checks)
        array.append(checkObject(check));
    return array;
}

std::optional<std::vector<Check>> checksFrom(const QJsonArray &array, const QUuid &monitorId)
{
    const QJsonArray map = {idText(monitorId), array};
    QByteArray json = QJsonDocument(map).toJson(QJsonDocument::Compact);
    json.reserve(json.size() + qsizetype(CheckMapDecoder::padding));
    CheckCollector collector(monitorId);
    if (!CheckMapDecoder(collector).decode({json.constData(), std::size_t(json.size())}))
        return std::nullopt;
    return std::move(collector.checks);
}

QString idText(const QUuid &id)
{
    const auto text = formatUuid(id);
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

std::optional<QUuid> idFrom(const QJsonValue &value)
{
    return parseUuid(value.toString().toStdString());
}

} // namespace ostrel
