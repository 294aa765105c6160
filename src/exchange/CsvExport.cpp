#include "CsvExport.h"

#include "CheckedAddress.h"
#include "NumberText.h"
#include "RecordObjects.h"

#include <QSet>

#include <algorithm>
#include <string>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

constexpr std::string_view header = "monitor,address,monitor id,time,status,response time (ms),"
                                    "status code,error,certificate expires\r\n";

/// The characters with which a formula begins in some spreadsheet, also in their wide form.
bool beginsFormula(QChar character)
{
    return u"=+-@\uFF1D\uFF0B\uFF0D\uFF20"_s.contains(character);
}

/// Spreadsheets pass over blanks and control characters before a formula.
bool looksLikeFormula(const QString &text)
{
    const auto isPassedOver = [](QChar character) {
        return character.isSpace() || character.category() == QChar::Other_Control ||
               character.category() == QChar::Other_Format;
    };
    const auto first = std::ranges::find_if_not(text, isPassedOver);
    return first != text.end() && beginsFormula(*first);
}

std::string textField(const QString &text)
{
    QString field = looksLikeFormula(text) ? u'\'' + text : text;
    field.replace(u'"', u"\"\""_s);
    return u"\"%1\""_s.arg(field).toStdString();
}

std::string timeField(Timestamp time)
{
    return formatTimestamp(time).toStdString();
}

/// The fields that all rows of @p monitor begin with.
std::string fieldsOf(const Monitor &monitor)
{
    return textField(monitor.displayName()) + ',' + textField(checkedAddress(monitor)) + ',' +
           idText(monitor.id).toStdString();
}

std::string fieldsOf(const Check &check)
{
    return timeField(check.timestamp) + (check.isUp ? ",up," : ",down,") +
           numberText(check.responseTime).toStdString() + ',' +
           (check.statusCode ? std::to_string(*check.statusCode) : std::string()) + ',' +
           (check.error ? textField(*check.error) : std::string()) + ',' +
           (check.sslExpiresAt ? timeField(*check.sslExpiresAt) : std::string());
}

void appendRows(const Monitor &monitor, std::span<const Check> checks, ContentWriter &content)
{
    const std::string beginning = fieldsOf(monitor) + ',';
    for (const Check &check : checks)
        content.append(beginning + fieldsOf(check) + "\r\n");
}

} // namespace

void appendCsvExport(const StoredRecords &records, ContentWriter &content)
{
    QSet<QUuid> seen;
    content.append(header);
    for (const Monitor &monitor : records.monitors) {
        const auto history = records.checks.find(monitor.id);
        if (history != records.checks.end() && !seen.contains(monitor.id))
            appendRows(monitor, history->second.checks(), content);
        seen.insert(monitor.id);
    }
}

} // namespace ostrel
