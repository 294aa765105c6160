#include "MonitorRow.h"

#include "DisplayFormats.h"
#include "StatusLabel.h"
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

/// The latest response time, where the row shows one.
std::optional<Milliseconds> shownTime(const MonitorState &state)
{
    if (state.status == MonitorStatus::pending || state.status == MonitorStatus::down ||
        !state.latestCheck)
        return std::nullopt;
    return Milliseconds(state.latestCheck->responseTime);
}

void showResult(MonitorRow &row, const MonitorState &state)
{
    if (state.status == MonitorStatus::down) {
        row.resultText = RowTexts::tr("DOWN");
        row.resultTone = Tone::Down;
    } else if (const auto time = shownTime(state)) {
        row.resultText = shortResponseTimeText(*time);
        row.resultTone = responseTimeTone(*time);
    }
}

QString spokenText(const MonitorRow &row, const MonitorState &state)
{
    QStringList parts = {row.name, QLocale().toLower(statusWord(state.status))};
    if (const auto time = shownTime(state))
        parts += responseTimeText(*time);
    parts += RowTexts::tr("24-hour uptime %1").arg(row.uptimeText);
    return parts.join(QLatin1String(", "));
}

} // namespace

MonitorRow monitorRow(const Monitor &monitor, const MonitorState &state)
{
    MonitorRow row{
        .name = nameText(monitor),
        .address = addressText(monitor.url),
        .status = state.status,
        .uptimeText = rowUptimeText(state.uptime24h),
    };
    showResult(row, state);
    row.spokenText = spokenText(row, state);
    return row;
}

} // namespace ostrel
