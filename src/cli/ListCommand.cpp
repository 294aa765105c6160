#include "ListCommand.h"

#include "MonitorJson.h"
#include "MonitorNames.h"
#include "OneLine.h"
#include "StoredRecords.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// A longer text shifts only the rest of its own line.
constexpr qsizetype widestColumn = 40;

template<typename Text>
qsizetype widthOf(const QList<Monitor> &monitors, Text text)
{
    qsizetype width = 0;
    for (const Monitor &monitor : monitors)
        width = std::clamp(text(monitor).size(), width, widestColumn);
    return width;
}

QString nameOf(const Monitor &monitor)
{
    return oneLine(monitor.displayName());
}

QString describeForPeople(const QList<Monitor> &monitors)
{
    if (monitors.isEmpty())
        return u"No monitors\n"_s;
    const qsizetype nameWidth = widthOf(monitors, nameOf);
    const qsizetype targetWidth = widthOf(monitors, targetText);
    QString lines;
    for (const Monitor &monitor : monitors) {
        const QStringList columns = {shortId(monitor), nameOf(monitor).leftJustified(nameWidth),
                                     targetText(monitor).leftJustified(targetWidth),
                                     u"every "_s + QString::number(monitor.interval.count()) +
                                         u" s"_s};
        lines += columns.join(u"  "_s) + (monitor.isEnabled ? u"\n"_s : u"  paused\n"_s);
    }
    return lines;
}

QString describeNames(const QList<Monitor> &monitors)
{
    QString lines;
    for (const Monitor &monitor : monitors)
        lines += nameOf(monitor) + u'\n';
    return lines;
}

} // namespace

QByteArray describeMonitors(const QList<Monitor> &monitors, ListFormat format)
{
    switch (format) {
    case ListFormat::human:
        return describeForPeople(monitors).toUtf8();
    case ListFormat::json:
        return encodeMonitors(monitors);
    case ListFormat::names:
        return describeNames(monitors).toUtf8();
    }
    Q_UNREACHABLE();
}

std::optional<QByteArray> readList(const ListInvocation &invocation)
{
    const StoredRecords records = StoredRecords::read(invocation.dataDir);
    if (records.areMonitorsUnreadable)
        return std::nullopt;
    return describeMonitors(records.monitors, invocation.format);
}

} // namespace ostrel
