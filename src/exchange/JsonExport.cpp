#include "JsonExport.h"

#include "CheckJson.h"
#include "MonitorJson.h"
#include "RecordObjects.h"

#include <QSet>

#include <string>
#include <utility>

namespace ostrel {

namespace {

void appendChecks(std::span<const Check> checks, ContentWriter &content)
{
    std::string json;
    bool isFirst = true;
    for (const Check &check : checks) {
        json = std::exchange(isFirst, false) ? "\n" : ",\n";
        appendCheck(json, check);
        content.append(json);
    }
}

std::span<const Check> checksOf(const StoredRecords &records, const QUuid &id)
{
    const auto found = records.checks.find(id);
    return found == records.checks.end() ? std::span<const Check>() : found->second.checks();
}

void appendHistories(const StoredRecords &records, ContentWriter &content)
{
    QSet<QUuid> seen;
    content.append(",\n\"checks\": {");
    for (const Monitor &monitor : records.monitors) {
        if (seen.contains(monitor.id))
            continue;
        content.append(seen.isEmpty() ? "\n" : ",\n");
        content.append('"' + idText(monitor.id).toStdString() + "\": [");
        appendChecks(checksOf(records, monitor.id), content);
        content.append("]");
        seen.insert(monitor.id);
    }
    content.append("}");
}

} // namespace

void appendJsonExport(const StoredRecords &records, ExportedHistory history, Timestamp exported,
                      ContentWriter &content)
{
    content.append("{\n\"format\": \"ostrel\",\n\"version\": 1,\n\"exported\": \"");
    content.append(formatTimestamp(exported).toStdString());
    content.append("\",\n\"monitors\": ");
    content.append(encodeMonitors(records.monitors).trimmed().toStdString());
    if (history == ExportedHistory::included)
        appendHistories(records, content);
    content.append("\n}\n");
}

} // namespace ostrel
