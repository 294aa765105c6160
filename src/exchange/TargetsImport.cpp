#include "TargetsImport.h"

#include "AddressList.h"
#include "FieldText.h"
#include "OneLine.h"

#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

const auto targetsKey = u"targets"_s;
const auto labelsKey = u"labels"_s;
const auto nameLabel = u"name"_s;

bool areTexts(const QJsonArray &array)
{
    return std::ranges::all_of(array, [](const QJsonValue &value) { return value.isString(); });
}

/// Whether @p group has the form that Prometheus demands.
bool isGroup(const QJsonObject &group)
{
    const QJsonValue labels = group.value(labelsKey);
    return group.value(targetsKey).isArray() && areTexts(group.value(targetsKey).toArray()) &&
           (labels.isUndefined() || labels.isNull() || labels.isObject());
}

QString nameOf(const QJsonObject &group)
{
    const bool isAlone = group.value(targetsKey).toArray().size() == 1;
    return isAlone ? trimmedField(group.value(labelsKey)[nameLabel].toString()) : QString();
}

/// The labels of @p group that mean nothing to a monitor.
QStringList foreignLabels(const QJsonObject &group)
{
    QStringList labels = group.value(labelsKey).toObject().keys();
    if (!nameOf(group).isEmpty())
        labels.removeAll(nameLabel);
    return labels;
}

void readGroup(const QJsonObject &group, const QString &place, Timestamp now,
               ImportContent &content)
{
    for (const auto &target : group.value(targetsKey).toArray()) {
        const QString address = trimmedField(target.toString());
        auto monitor = monitorOfAddress(address, now);
        if (!monitor) {
            content.problems +=
                place + u"'"_s + oneLine(address) + u"' is no web address and no HOST:PORT"_s;
            continue;
        }
        const QString name = nameOf(group);
        if (!name.isEmpty())
            monitor->name = name;
        content.monitors.append({.monitor = *monitor});
    }
    const QStringList foreign = foreignLabels(group);
    if (!foreign.isEmpty())
        content.notes +=
            place + u"no counterpart for the labels "_s + oneLine(foreign.join(u", "_s));
}

} // namespace

bool areTargets(const QJsonArray &array)
{
    return std::ranges::any_of(
        array, [](const QJsonValue &group) { return group.toObject().contains(targetsKey); });
}

ImportContent readTargets(const QJsonArray &groups, Timestamp now)
{
    ImportContent content;
    qsizetype number = 0;
    for (const auto &value : groups) {
        const QString place = u"group "_s + QString::number(++number) + u": "_s;
        const QJsonObject group = value.toObject();
        if (isGroup(group))
            readGroup(group, place, now, content);
        else
            content.problems += place + u"it isn't an object with a list of targets"_s;
    }
    return content;
}

} // namespace ostrel
