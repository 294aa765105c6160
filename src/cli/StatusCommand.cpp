#include "StatusCommand.h"

#include "FixedPoint.h"
#include "MonitorStore.h"
#include "OneLine.h"
#include "RecordObjects.h"
#include "UptimeWindow.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// A longer name shifts only the rest of its own line.
constexpr qsizetype widestNameColumn = 40;

QString statusName(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return u"up"_s;
    case MonitorStatus::down:
        return u"down"_s;
    case MonitorStatus::paused:
        return u"paused"_s;
    case MonitorStatus::pending:
        return u"pending"_s;
    }
    Q_UNREACHABLE();
}

QJsonObject uptimeObject(const MonitorStore &store, const Monitor &monitor)
{
    QJsonObject uptimes;
    for (const auto &window : uptimeWindows)
        uptimes.insert(QLatin1String(window.name), store.uptime(monitor.id, window.length));
    return uptimes;
}

QJsonObject monitorObject(const MonitorStore &store, const Monitor &monitor)
{
    QJsonObject object{
        {u"id"_s, idText(monitor.id)},
        {u"name"_s, monitor.displayName()},
        {u"url"_s, monitor.url},
        {u"type"_s, rawValue(monitor.type)},
        {u"status"_s, statusName(store.status(monitor))},
        {u"uptime"_s, uptimeObject(store, monitor)},
    };
    if (const auto check = store.latestCheck(monitor))
        object.insert(u"latestCheck"_s, checkObject(*check));
    return object;
}

QString nameOf(const Monitor &monitor)
{
    return oneLine(monitor.displayName());
}

QString resultText(const std::optional<Check> &check)
{
    if (!check)
        return u"not checked yet"_s;
    const QString time = QString::fromLatin1(formatTimestamp(check->timestamp));
    const QString result = check->isUp ? fixedPoint(check->responseTime) + u" ms"_s
                                       : oneLine(check->error.value_or(u"Not responding"_s));
    return u"%1 at %2"_s.arg(result, time);
}

QString uptimeText(const MonitorStore &store, const Monitor &monitor)
{
    QStringList parts;
    for (const auto &window : uptimeWindows) {
        const double share = store.uptime(monitor.id, window.length);
        parts += QLatin1String(window.name) + u' ' + fixedPoint(share * 100, 1) + u'%';
    }
    return parts.join(u", "_s);
}

QString monitorLine(const MonitorStore &store, const Monitor &monitor, qsizetype nameWidth)
{
    return u"%1  %2  %3  %4\n"_s.arg(statusName(store.status(monitor)).toUpper().leftJustified(7),
                                     nameOf(monitor).leftJustified(nameWidth),
                                     uptimeText(store, monitor),
                                     resultText(store.latestCheck(monitor)));
}

QByteArray describeForPeople(const MonitorStore &store)
{
    if (store.monitors().isEmpty())
        return "No monitors\n";
    qsizetype nameWidth = 0;
    for (const Monitor &monitor : store.monitors())
        nameWidth = std::clamp(nameOf(monitor).size(), nameWidth, widestNameColumn);
    QString lines;
    for (const Monitor &monitor : store.monitors())
        lines += monitorLine(store, monitor, nameWidth);
    return lines.toUtf8();
}

QByteArray describeAsJson(const MonitorStore &store)
{
    QJsonArray array;
    for (const Monitor &monitor : store.monitors())
        array.append(monitorObject(store, monitor));
    return QJsonDocument(array).toJson(QJsonDocument::Indented);
}

} // namespace

QByteArray describeStatus(const MonitorStore &store, OutputFormat format)
{
    return format == OutputFormat::json ? describeAsJson(store) : describeForPeople(store);
}

std::optional<QByteArray> readStatus(const StatusInvocation &invocation)
{
    StoredRecords records = StoredRecords::read(invocation.dataDir);
    if (records.areMonitorsUnreadable)
        return std::nullopt;
    const MonitorStore store(invocation.dataDir, std::move(records),
                             {.access = MonitorStore::Access::readOnly});
    return describeStatus(store, invocation.format);
}

} // namespace ostrel
