#include "RecordImport.h"

#include "OneLine.h"
#include "RecordObjects.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// Why @p exported can't be read at all; nullopt if it can.
std::optional<QString> obstacle(const QJsonObject &exported)
{
    if (exported.value(u"format"_s).toString() != u"ostrel"_s)
        return u"the file isn't an export of Ostrel"_s;
    if (exported.value(u"version"_s).toDouble() != 1)
        return u"the file has a version that this Ostrel can't read"_s;
    if (!exported.value(u"monitors"_s).isArray())
        return u"the file has no list of monitors"_s;
    const QJsonValue checks = exported.value(u"checks"_s);
    if (!checks.isUndefined() && !checks.isObject())
        return u"the file's checks aren't an object"_s;
    return std::nullopt;
}

/// The histories in @p object, by the spelling of the ids in the files. Adds what is wrong with
/// them to @p content.
QHash<QUuid, std::vector<Check>> historiesIn(const QJsonObject &object, ImportContent &content)
{
    QHash<QUuid, std::vector<Check>> histories;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const auto id = idFrom(QJsonValue(entry.key()));
        auto checks =
            id && entry.value().isArray() ? checksFrom(entry.value().toArray(), *id) : std::nullopt;
        if (checks)
            histories.insert(*id, *std::move(checks));
        else
            content.problems += u"the checks of '"_s + oneLine(entry.key()) +
                                u"' lack a member, or one is unusable"_s;
    }
    return histories;
}

void addHistories(const QJsonObject &object, ImportContent &content)
{
    auto histories = historiesIn(object, content);
    for (ImportedMonitor &imported : content.monitors) {
        const auto found = histories.find(imported.monitor.id);
        if (found != histories.end())
            imported.checks = std::move(*found);
        histories.remove(imported.monitor.id);
    }
    for (auto left = histories.keyBegin(); left != histories.keyEnd(); ++left)
        content.notes += u"no monitor has the checks of "_s + idText(*left);
}

} // namespace

ImportContent readRecords(const QJsonArray &monitors)
{
    ImportContent content;
    qsizetype number = 0;
    for (const auto &value : monitors) {
        ++number;
        const auto monitor = monitorFrom(value.toObject());
        if (monitor)
            content.monitors.append({.monitor = *monitor, .hasIdentity = true});
        else
            content.problems += u"monitor "_s + QString::number(number) +
                                u": a member is missing, or is unusable"_s;
    }
    return content;
}

ImportContent readRecords(const QJsonObject &exported)
{
    if (const auto problem = obstacle(exported))
        return {.problems = {*problem}};
    ImportContent content = readRecords(exported.value(u"monitors"_s).toArray());
    addHistories(exported.value(u"checks"_s).toObject(), content);
    return content;
}

} // namespace ostrel
