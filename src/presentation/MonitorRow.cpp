#include "MonitorRow.h"

#include "DisplayFormats.h"
#include "StatusLabel.h"
#include "TextLanguage.h"
#include "ToneRules.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace ostrel {

namespace {

struct RowTexts
{
    Q_DECLARE_TR_FUNCTIONS(MonitorRow)
};

/// The latest response time, if the row shows one.
std::optional<Milliseconds> shownTime(const MonitorSummary &summary)
{
    if (summary.status == MonitorStatus::pending || summary.status == MonitorStatus::down ||
        !summary.latestCheck)
        return std::nullopt;
    return Milliseconds(summary.latestCheck->responseTime);
}

void showResult(MonitorRow &row, const MonitorSummary &summary)
{
    if (summary.status == MonitorStatus::down) {
        row.resultText = RowTexts::tr("DOWN");
        row.resultTone = Tone::Down;
    } else if (const auto time = shownTime(summary)) {
        row.resultText = shortResponseTimeText(*time);
        row.resultTone = responseTimeTone(*time);
    }
}

QString spokenText(const MonitorRow &row, const MonitorSummary &summary)
{
    QStringList parts = {row.name, textLanguage().toLower(statusWord(summary.status))};
    if (const auto time = shownTime(summary))
        parts += responseTimeText(*time);
    parts += RowTexts::tr("24-hour uptime %1").arg(row.uptimeText);
    return parts.join(QLatin1String(", "));
}

} // namespace

MonitorRow monitorRow(const Monitor &monitor, const MonitorSummary &summary)
{
    MonitorRow row{
        .name = nameText(monitor),
        .address = addressText(monitor.url),
        .status = summary.status,
        .uptimeText = rowUptimeText(summary.uptime24h),
    };
    showResult(row, summary);
    row.spokenText = spokenText(row, summary);
    return row;
}

} // namespace ostrel
