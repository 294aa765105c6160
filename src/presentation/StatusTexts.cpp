#include "StatusTexts.h"

#include "DisplayFormats.h"
#include "MonitorStore.h"
#include "ToneRules.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace ostrel {

namespace {

struct StatusTexts
{
    Q_DECLARE_TR_FUNCTIONS(StatusTexts)
};

bool isUp(const MonitorStore &store, const Monitor &monitor)
{
    return store.status(monitor) == MonitorStatus::up;
}

bool isDown(const MonitorStore &store, const Monitor &monitor)
{
    return store.status(monitor) == MonitorStatus::down;
}

QString menuSymbol(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return QStringLiteral("checkmark.circle.fill");
    case MonitorStatus::down:
        return QStringLiteral("xmark.circle.fill");
    case MonitorStatus::paused:
    case MonitorStatus::pending:
        return QStringLiteral("circle.dotted");
    }
    Q_UNREACHABLE();
}

QString menuTrailingText(MonitorStatus status, const std::optional<Check> &latestCheck)
{
    if (status == MonitorStatus::down)
        return StatusTexts::tr("DOWN");
    if (latestCheck && latestCheck->isUp)
        return compactResponseTimeText(Milliseconds(latestCheck->responseTime));
    return {};
}

} // namespace

QString statusWord(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return StatusTexts::tr("Up");
    case MonitorStatus::down:
        return StatusTexts::tr("Down");
    case MonitorStatus::paused:
        return StatusTexts::tr("Paused");
    case MonitorStatus::pending:
        return StatusTexts::tr("Pending");
    }
    Q_UNREACHABLE();
}

QString pillWord(MonitorStatus status)
{
    return QLocale().toUpper(statusWord(status));
}

QString statusSymbol(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return QStringLiteral("checkmark.circle.fill");
    case MonitorStatus::down:
        return QStringLiteral("exclamationmark.triangle.fill");
    case MonitorStatus::paused:
        return QStringLiteral("moon.circle.fill");
    case MonitorStatus::pending:
        return QStringLiteral("circle.dotted.circle");
    }
    Q_UNREACHABLE();
}

QString headline(MonitorStatus overallStatus)
{
    switch (overallStatus) {
    case MonitorStatus::up:
        return StatusTexts::tr("All Systems Operational");
    case MonitorStatus::down:
        return StatusTexts::tr("Issues Detected");
    case MonitorStatus::paused:
    case MonitorStatus::pending:
        return StatusTexts::tr("Checking...");
    }
    Q_UNREACHABLE();
}

QString countLine(qsizetype up, qsizetype total)
{
    return StatusTexts::tr("%1 of %2 monitors up").arg(up).arg(total);
}

StatusBanner statusBanner(const MonitorStore &store)
{
    const auto &monitors = store.monitors();
    const auto up = std::ranges::count_if(
        monitors, [&](const Monitor &monitor) { return isUp(store, monitor); });
    const MonitorStatus overall = store.overallStatus();
    return {
        .symbol = statusSymbol(overall),
        .headline = headline(overall),
        .countLine = countLine(up, monitors.size()),
        .tone = statusTone(overall),
    };
}

bool isAnythingDown(const MonitorStore &store)
{
    return std::ranges::any_of(store.monitors(),
                               [&](const Monitor &monitor) { return isDown(store, monitor); });
}

StatusMenuEntry statusMenuEntry(const Monitor &monitor, MonitorStatus status,
                                const std::optional<Check> &latestCheck)
{
    return {
        .symbol = menuSymbol(status),
        .name = nameText(monitor),
        .trailingText = menuTrailingText(status, latestCheck),
    };
}

} // namespace ostrel
